// Directories and places on a POSIX system: listings, the temporary and current directories.
#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/os.h"
#include "platform/os_shared.h"

namespace hlyd::os {

int listDirectory(const std::string& directory, std::vector<std::string>& names) {
    names.clear();
    shared::countDirectoryListing();
    DIR* dir = ::opendir(directory.empty() ? "." : directory.c_str());
    if (!dir) return errno;
    while (const dirent* entry = ::readdir(dir)) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(std::move(name));
    }
    ::closedir(dir);
    return 0;
}

bool windowsFileNames() { return false; }

std::string tempDirectory() {
    const char* dir = std::getenv("TMPDIR");
    return dir && *dir ? dir : "/tmp";
}

std::string tempFileName(const std::string& prefix) {
    std::string pattern = tempDirectory() + "/" + prefix + "XXXXXX";
    int fd = ::mkstemp(pattern.data());
    if (fd >= 0) ::close(fd);
    return pattern;
}

std::string currentDirectory() {
    std::error_code ec;
    return std::filesystem::current_path(ec).string();
}

std::string homeDirectory() {
    const char* home = std::getenv("HOME");
    return home && *home ? std::string(home) : currentDirectory();
}

std::string absolutePath(const std::string& path) {
    std::error_code ec;
    return std::filesystem::absolute(path, ec).lexically_normal().string();
}

}  // namespace hlyd::os
