#pragma once
// Printing the one file named on the command line, without a window, and leaving.
#include <string>

#include "shell/command_line_job.h"

namespace hlyd {

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
