#pragma once
// What the implementations of the port share; not for the core, which sees only os.h.
#include <string>

#include "platform/os.h"

namespace hlyd::os::shared {

// 0 when a file of this description may be replaced: missing, or regular and writable by its mode.
int replaceTargetProblem(const FileInfo& target);
// A name for a new file in the target's directory, unique in this process, hidden where a leading
// point hides, and never longer than a folder entry may be.
std::string tempNameBeside(const std::string& target);
// Counts one listing of a directory (see directoryListingsRead).
void countDirectoryListing();

}  // namespace hlyd::os::shared
