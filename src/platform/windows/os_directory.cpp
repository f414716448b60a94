// Directories and places on Windows: listings, the temporary and current directories.
#include "platform/os.h"

#include <cstdlib>

#include "platform/os_shared.h"
#include "platform/windows/win_support.h"

namespace hlyd::os {

int listDirectory(const std::string& directory, std::vector<std::string>& names) {
    names.clear();
    shared::countDirectoryListing();
    std::string pattern = directory.empty() ? std::string(".") : directory;
    if (pattern.back() != '\\' && pattern.back() != '/') pattern += '\\';
    pattern += '*';
    WIN32_FIND_DATAA entry;
    HANDLE find = FindFirstFileA(pattern.c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) {
        DWORD code = GetLastError();
        return code == ERROR_FILE_NOT_FOUND ? 0 : win::errnoOf(code);
    }
    do {
        std::string name = entry.cFileName;
        if (name != "." && name != "..") names.push_back(std::move(name));
    } while (FindNextFileA(find, &entry));
    FindClose(find);
    return 0;
}

bool windowsFileNames() { return true; }

std::string tempDirectory() {
    char buffer[MAX_PATH + 1];
    DWORD length = GetTempPathA(sizeof buffer, buffer);
    if (length == 0 || length > MAX_PATH) return ".";
    std::string dir(buffer, length);
    if (dir.size() > 3 && (dir.back() == '\\' || dir.back() == '/')) dir.pop_back();
    return dir;
}

std::string tempFileName(const std::string& prefix) {
    char buffer[MAX_PATH + 1];
    if (GetTempFileNameA(tempDirectory().c_str(), prefix.c_str(), 0, buffer) == 0) return {};
    return buffer;
}

std::string currentDirectory() {
    char buffer[MAX_PATH + 1];
    DWORD length = GetCurrentDirectoryA(sizeof buffer, buffer);
    return length == 0 || length > MAX_PATH ? std::string(".") : std::string(buffer, length);
}

std::string homeDirectory() {
    const char* home = std::getenv("USERPROFILE");
    return home && *home ? std::string(home) : currentDirectory();
}

std::string absolutePath(const std::string& path) {
    char buffer[MAX_PATH * 2];
    DWORD length = GetFullPathNameA(path.c_str(), sizeof buffer, buffer, nullptr);
    return length == 0 || length >= sizeof buffer ? path : std::string(buffer, length);
}

}  // namespace hlyd::os
