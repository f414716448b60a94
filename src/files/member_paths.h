#pragma once
// Project members are named the Windows way: backslashes, drive letters, and letters in any
// case. Here they are found on a file system that separates with "/" and minds the case.
#include <string>

namespace hlyd {

// The member's path on this system: found as named, or with its letter case mended, or (for a
// name with a drive) below the project's own directory; else the name as built, with "/".
std::string resolveMemberPath(const std::string& projectDirectory, const std::string& wholeFile);

}  // namespace hlyd
