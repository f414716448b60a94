#pragma once
// What the Windows files of the port share: the translation of the system's error codes into
// errno values, and of file times into seconds since 1970.
#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <string>
#include <string_view>

namespace hlyd::os::win {

inline int errnoOf(DWORD code) {
    switch (code) {
        case ERROR_SUCCESS: return 0;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_NETPATH: return ENOENT;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT: return EACCES;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION: return EBUSY;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL: return ENOSPC;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY: return ENOMEM;
        case ERROR_NOT_READY: return ENXIO;
        case ERROR_DIRECTORY: return ENOTDIR;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS: return EEXIST;
        default: return EIO;
    }
}

inline int lastErrno() { return errnoOf(GetLastError()); }

// 100-nanosecond ticks since 1601 to seconds and nanoseconds since 1970.
inline void unixTime(const FILETIME& t, std::int64_t& seconds, std::int64_t& nanoseconds) {
    std::int64_t ticks = (static_cast<std::int64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
    ticks -= 116444736000000000LL;
    seconds = ticks / 10000000;
    nanoseconds = (ticks % 10000000) * 100;
}

inline bool writeAll(HANDLE handle, std::string_view data, int& error) {
    while (!data.empty()) {
        DWORD put = 0;
        if (!WriteFile(handle, data.data(), static_cast<DWORD>(data.size()), &put, nullptr) || put == 0) {
            error = lastErrno();
            return false;
        }
        data.remove_prefix(put);
    }
    return true;
}

}  // namespace hlyd::os::win
