#pragma once
// The shell's part of the Session: the start's state, the command-line job, and what the error
// report asks of the window.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/session.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"
#include "xref/name_index.h"

namespace hlyd {

struct ShellState {
    HlydMainState main;
    CommandLineJob commandLineJob;
    std::function<std::string()> currentFileNameSource;
    std::function<void(int)> programEnd;
    std::shared_ptr<NameIndex> nameIndex;  // of the open files named here, for the name jumps
    std::vector<std::string> nameIndexFiles;
};

inline ShellState& shellState() { return *detail::current.shell; }

}  // namespace hlyd
