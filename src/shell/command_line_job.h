#pragma once
// The job of a run started with a file on its command line: what the options asked for, where
// its words go, and the exit status it ends with.
#include <iosfwd>
#include <string>

#include "shell/batch_options.h"

namespace hlyd {

// Exit statuses of a command-line run.
constexpr int kExitFault = 1;       // a run-time fault stopped the job
constexpr int kExitLeftOut = 1;     // a limit of the reader left part of a file out
constexpr int kExitUnreadable = 2;  // a file could not be read
constexpr int kExitNoDisplay = 2;   // the window was asked for and there is no display
constexpr int kExitUnwritable = 3;  // an output could not be written
constexpr int kExitUsage = 64;      // a misused option

struct CommandLineJob {
    BatchOptions options;
    int exitStatus = 0;
    std::ostream* out = nullptr;  // the paths written; standard output when not set
    std::ostream* err = nullptr;  // progress and failures; standard error when not set
};
CommandLineJob& commandLineJob();
void resetCommandLineJob();

std::ostream& jobOut();
std::ostream& jobErr();
// Tells the failure in one line on the job's error stream; the first failure sets the status.
void failJob(int status, const std::string& message);

}  // namespace hlyd
