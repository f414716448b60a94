// Whole-file replacement on Windows: a temporary file beside the target, given the target's
// attributes and moved over it. A file that is replaced is flushed to the disk first and moved by a
// move that is written through; a new file is not (as on POSIX: nothing the user had is at stake).
#include "platform/os.h"
#include "platform/os_shared.h"
#include "platform/windows/win_support.h"

namespace hlyd::os {

namespace {

// The file a link ends at, by the system's own resolution; the name itself when it is no link
// or names nothing yet.
std::string linkTarget(const std::string& path) {
    if (!isSymlink(path)) return path;
    HANDLE h = CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (h == INVALID_HANDLE_VALUE) return path;
    char buffer[MAX_PATH * 2];
    DWORD length = GetFinalPathNameByHandleA(h, buffer, sizeof buffer, FILE_NAME_NORMALIZED);
    CloseHandle(h);
    if (length == 0 || length >= sizeof buffer) return path;
    std::string target(buffer, length);
    if (target.rfind("\\\\?\\UNC\\", 0) == 0) return "\\\\" + target.substr(8);
    if (target.rfind("\\\\?\\", 0) == 0) return target.substr(4);
    return target;
}

}  // namespace

struct AtomicWriter::Handle {
    HANDLE h = INVALID_HANDLE_VALUE;
    std::string target;
    std::string temp;
    DWORD attributes = 0;  // the target's, kept: hidden, system, archive
    bool replacing = false;
    std::string pending;  // written out in blocks: a document comes a line at a time
};

AtomicWriter::AtomicWriter() : handle_(std::make_unique<Handle>()) {}
AtomicWriter::~AtomicWriter() { abandon(); }

int AtomicWriter::begin(const std::string& target) {
    abandon();
    Handle& h = *handle_;
    h.target = linkTarget(target);
    FileInfo info = fileInfo(h.target);
    if (int problem = shared::replaceTargetProblem(info); problem != 0) return error_ = problem;
    h.replacing = info.exists();
    DWORD old = info.exists() ? GetFileAttributesA(h.target.c_str()) : INVALID_FILE_ATTRIBUTES;
    h.attributes = old == INVALID_FILE_ATTRIBUTES
                           ? 0
                           : old & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE);
    h.temp = shared::tempNameBeside(h.target);
    h.h = CreateFileA(h.temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h.h == INVALID_HANDLE_VALUE) {
        h.temp.clear();
        return error_ = win::lastErrno();
    }
    return error_ = 0;
}

bool AtomicWriter::write(std::string_view data) {
    Handle& h = *handle_;
    if (h.h == INVALID_HANDLE_VALUE) return false;
    h.pending.append(data);
    if (h.pending.size() < 64 * 1024) return true;
    bool ok = win::writeAll(h.h, h.pending, error_);
    h.pending.clear();
    if (!ok) abandon();
    return ok;
}

int AtomicWriter::commit() {
    Handle& h = *handle_;
    if (h.h == INVALID_HANDLE_VALUE) return error_ ? error_ : EBADF;
    bool ok = win::writeAll(h.h, h.pending, error_) && (!h.replacing || FlushFileBuffers(h.h));
    if (!ok && error_ == 0) error_ = win::lastErrno();
    h.pending.clear();
    CloseHandle(h.h);
    h.h = INVALID_HANDLE_VALUE;
    if (ok) {
        if (h.attributes != 0) SetFileAttributesA(h.temp.c_str(), h.attributes);
        DWORD how = MOVEFILE_REPLACE_EXISTING | (h.replacing ? MOVEFILE_WRITE_THROUGH : 0);
        ok = MoveFileExA(h.temp.c_str(), h.target.c_str(), how) != 0;
        if (!ok) error_ = win::lastErrno();
    }
    if (ok) {
        h.temp.clear();
        return error_ = 0;
    }
    abandon();
    return error_;
}

void AtomicWriter::abandon() {
    Handle& h = *handle_;
    if (h.h != INVALID_HANDLE_VALUE) CloseHandle(h.h);
    h.h = INVALID_HANDLE_VALUE;
    h.pending.clear();
    if (!h.temp.empty()) DeleteFileA(h.temp.c_str());
    h.temp.clear();
}

}  // namespace hlyd::os
