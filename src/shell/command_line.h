#pragma once
// Printing the one file named on the command line, without a window, and leaving.
#include <iosfwd>
#include <string>

#include "shell/batch_options.h"

namespace hlyd {

// Exit statuses of a command-line run.
constexpr int kExitUnreadable = 2;  // a file could not be read
constexpr int kExitUnwritable = 3;  // an output could not be written
constexpr int kExitUsage = 64;      // a misused option

// What the command line asked for beyond the name, and how the job went.
struct CommandLineJob {
    BatchOptions options;
    int exitStatus = 0;
    std::ostream* out = nullptr;  // the paths written; standard output when not set
    std::ostream* err = nullptr;  // progress and failures; standard error when not set
};
CommandLineJob& commandLineJob();
void resetCommandLineJob();

// True for a name that is never printed: an unknown switch or a wildcard.
bool isRejectedCommandLineName(const std::string& name);

// "Sample" stands for the first of Sample.bas, Sample.cls, ... (the source extensions of the
// settings) that exists; a name with an extension, or that exists, stays as it is.
std::string withSourceExtension(const std::string& name);

// Prints the file, project or group. A name without an extension of its own is tried with the
// source extensions of the settings, and comes back extended with the one found. A project
// prints its members in its own order.
void HlydCMProcess(std::string& FileName);

}  // namespace hlyd
