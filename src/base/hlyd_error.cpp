#include "base/hlyd_error.h"

#include <cerrno>

#include "platform/os.h"

namespace hlyd {

std::string errorDescription(int number) {
    switch (number) {
        case 5: return "Invalid procedure call or argument";
        case 6: return "Overflow";
        case 7: return "Out of memory";
        case 9: return "Subscript out of range";
        case 11: return "Division by zero";
        case 13: return "Type mismatch";
        case 14: return "Out of string space";
        case 52: return "Bad file name or number";
        case 53: return "File not found";
        case 55: return "File already open";
        case 57: return "Device I/O error";
        case 61: return "Disk full";
        case 62: return "Input past end of file";
        case 68: return "Device unavailable";
        case 70: return "Permission denied";
        case 71: return "Disk not ready";
        case 75: return "Path/File access error";
        case 76: return "Path not found";
        case 380: return "Invalid property value";
        case 457: return "This key is already associated with an element of this collection";
        case 482: return "Printer error";
        case 483: return "Printer driver does not support specified property";
        case 484:
            return "Problem getting printer information from the system. Make sure the printer is set up correctly.";
        case kInternalError: return "Internal error";
        default: return "Application-defined or object-defined error";
    }
}

void raiseInternal(const std::string& source) {
    throw HlydError(kInternalError, errorDescription(kInternalError), source);
}

void raiseRuntime(int number, const std::string& source) { throw HlydError(number, errorDescription(number), source); }

int runtimeErrorFromErrno(int err) {
    switch (err) {
        case ENOENT: return 53;
        case ENOTDIR: return 76;
        case EACCES:
        case EPERM: return 70;
        case EISDIR: return 75;
        case ENOSPC: return 61;
        case ENOMEM: return 7;
        case ENXIO:
        case ENODEV: return 68;
        case EBUSY: return 55;
        case EIO: return 57;
        default: return 75;
    }
}

std::string describeSystemError(int err) {
    // A file that is there but is no regular file, or is read-only, is not described as missing.
    if (err == os::kNotRegularFile || err == os::kReadOnlyFile || err == os::kSameAsInput) return os::errorText(err);
    return errorDescription(runtimeErrorFromErrno(err));
}

}  // namespace hlyd
