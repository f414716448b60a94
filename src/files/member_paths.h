#pragma once
// Project members are named the Windows way: backslashes, drive letters, and letters in any
// case. Here they are found on a file system that separates with "/" and minds the case.
#include <string>

namespace hlyd {

// The member's path on this system: found as named, or with its letter case mended, or (for a
// name with a drive) below the project's own directory; else the name as built, with "/".
std::string resolveMemberPath(const std::string& projectDirectory, const std::string& wholeFile);

// While one lives, each directory is listed once and its listing kept: open one around the read
// of a project, so that a thousand members in a folder cost one listing and not a thousand.
class DirectoryListingScope {
public:
    DirectoryListingScope();
    ~DirectoryListingScope();
    DirectoryListingScope(const DirectoryListingScope&) = delete;
    DirectoryListingScope& operator=(const DirectoryListingScope&) = delete;
};

}  // namespace hlyd
