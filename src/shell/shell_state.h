#pragma once
// The shell's part of the Session: the start's state, the command-line job, and what the error
// report asks of the window.
#include <functional>
#include <string>

#include "platform/session.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"

namespace hlyd {

struct ShellState {
    HlydMainState main;
    CommandLineJob commandLineJob;
    std::function<std::string()> currentFileNameSource;
    std::function<void(int)> programEnd;
};

inline ShellState& shellState() { return *detail::current.shell; }

}  // namespace hlyd
