#pragma once
// Printing the files named on the command line, without a window, and leaving.
#include <string>
#include <vector>

#include "shell/command_line_job.h"

namespace hlyd {

// Prints the files, projects and groups as one job, in the order given (a pattern stands for
// the files it matches, a name without an extension of its own for the source file that has
// one). A project prints its members in its own order. A name that gives no file is told and
// the others are printed.
void HlydCMProcess(const std::vector<std::string>& names);
// The same for one name, which comes back extended with the source extension found.
void HlydCMProcess(std::string& FileName);

}  // namespace hlyd
