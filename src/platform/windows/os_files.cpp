// Files on Windows: what a name is, and regular files opened for reading and writing. A pipe or
// a character device (NUL, CON, a COM port) is told from a disk file by the handle's type and is
// never read or written.
#include "platform/os.h"
#include "platform/windows/win_support.h"

namespace hlyd::os {

namespace {

// A handle that only asks about the file: it neither reads nor waits, and opens directories too.
HANDLE queryHandle(const std::string& path) {
    return CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

FileInfo infoOfHandle(HANDLE h) {
    FileInfo info;
    DWORD type = GetFileType(h);
    if (type == FILE_TYPE_PIPE) info.kind = FileKind::Fifo;
    else if (type == FILE_TYPE_CHAR) info.kind = FileKind::Device;
    else if (type != FILE_TYPE_DISK) info.kind = FileKind::Other;
    if (type != FILE_TYPE_DISK) return info;
    BY_HANDLE_FILE_INFORMATION data{};
    if (!GetFileInformationByHandle(h, &data)) {
        info.kind = FileKind::Other;
        return info;
    }
    info.kind = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? FileKind::Directory : FileKind::Regular;
    info.size = (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    win::unixTime(data.ftLastWriteTime, info.modifiedSeconds, info.modifiedNanoseconds);
    info.device = data.dwVolumeSerialNumber;
    info.fileId = (static_cast<std::uint64_t>(data.nFileIndexHigh) << 32) | data.nFileIndexLow;
    info.writableByMode = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
    return info;
}

int notRegularReason(FileKind kind) { return kind == FileKind::Directory ? EISDIR : kNotRegularFile; }

// Opens for reading or writing and keeps the handle only if it is a disk file.
int openRegular(const std::string& path, DWORD access, DWORD disposition, HANDLE& handle) {
    FileInfo before = fileInfo(path);
    if (before.exists() && !before.regular()) return notRegularReason(before.kind);
    handle = CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return win::lastErrno();
    FileInfo opened = infoOfHandle(handle);
    if (!opened.regular()) {
        CloseHandle(handle);
        handle = INVALID_HANDLE_VALUE;
        return notRegularReason(opened.kind);
    }
    return 0;
}

}  // namespace

FileInfo fileInfo(const std::string& path) {
    HANDLE h = queryHandle(path);
    if (h == INVALID_HANDLE_VALUE) {
        FileInfo missing;
        missing.error = win::lastErrno();
        if (missing.error == EACCES || missing.error == EBUSY) missing.kind = FileKind::Other;
        return missing;
    }
    FileInfo info = infoOfHandle(h);
    CloseHandle(h);
    return info;
}

bool isSymlink(const std::string& path) {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

bool removeFile(const std::string& path) { return DeleteFileA(path.c_str()) != 0; }

bool makeDirectories(const std::string& path) {
    if (path.empty()) return false;
    if (fileInfo(path).kind == FileKind::Directory) return true;
    std::size_t cut = path.find_last_of("\\/", path.size() - 2);
    if (cut != std::string::npos && cut > 0 && path[cut - 1] != ':') makeDirectories(path.substr(0, cut));
    CreateDirectoryA(path.c_str(), nullptr);
    return fileInfo(path).kind == FileKind::Directory;
}

struct InputFile::Handle {
    HANDLE h = INVALID_HANDLE_VALUE;
};

InputFile::InputFile() : handle_(std::make_unique<Handle>()) {}
InputFile::~InputFile() { close(); }

int InputFile::open(const std::string& path) {
    close();
    error_ = openRegular(path, GENERIC_READ, OPEN_EXISTING, handle_->h);
    LARGE_INTEGER size{};
    size_ = error_ == 0 && GetFileSizeEx(handle_->h, &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
    return error_;
}

void InputFile::close() {
    if (handle_->h != INVALID_HANDLE_VALUE) CloseHandle(handle_->h);
    handle_->h = INVALID_HANDLE_VALUE;
}

bool InputFile::isOpen() const { return handle_->h != INVALID_HANDLE_VALUE; }

long InputFile::read(char* buffer, std::size_t size) {
    if (handle_->h == INVALID_HANDLE_VALUE) return 0;
    DWORD got = 0;
    if (!ReadFile(handle_->h, buffer, static_cast<DWORD>(size), &got, nullptr)) {
        error_ = win::lastErrno();
        return -1;
    }
    return static_cast<long>(got);
}

struct OutputFile::Handle {
    HANDLE h = INVALID_HANDLE_VALUE;
    std::string pending;  // written out in blocks, as a buffered stream would
};

OutputFile::OutputFile() : handle_(std::make_unique<Handle>()) {}
OutputFile::~OutputFile() { close(); }

int OutputFile::open(const std::string& path, bool append) {
    close();
    error_ = openRegular(path, GENERIC_WRITE, append ? OPEN_ALWAYS : CREATE_ALWAYS, handle_->h);
    if (error_ == 0 && append) SetFilePointer(handle_->h, 0, nullptr, FILE_END);
    return error_;
}

bool OutputFile::write(std::string_view data) {
    if (handle_->h == INVALID_HANDLE_VALUE) return false;
    handle_->pending.append(data);
    return handle_->pending.size() < 8192 || flush();
}

bool OutputFile::flush() {
    bool ok = handle_->h != INVALID_HANDLE_VALUE && win::writeAll(handle_->h, handle_->pending, error_);
    handle_->pending.clear();
    return ok;
}

void OutputFile::close() {
    if (handle_->h == INVALID_HANDLE_VALUE) return;
    flush();
    CloseHandle(handle_->h);
    handle_->h = INVALID_HANDLE_VALUE;
}

bool OutputFile::isOpen() const { return handle_->h != INVALID_HANDLE_VALUE; }

}  // namespace hlyd::os
