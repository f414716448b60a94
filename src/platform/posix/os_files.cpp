// Files on a POSIX system: what a name is, and regular files opened for reading and writing.
// Every open is non-blocking until the descriptor is known to be a regular file, so that a FIFO
// named by mistake cannot hang the program.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/os.h"

namespace hlyd::os {

namespace {

FileKind kindOf(mode_t mode) {
    if (S_ISREG(mode)) return FileKind::Regular;
    if (S_ISDIR(mode)) return FileKind::Directory;
    if (S_ISFIFO(mode)) return FileKind::Fifo;
    if (S_ISSOCK(mode)) return FileKind::Socket;
    if (S_ISCHR(mode) || S_ISBLK(mode)) return FileKind::Device;
    return FileKind::Other;
}

FileInfo infoOf(const struct stat& st) {
    FileInfo info;
    info.kind = kindOf(st.st_mode);
    info.size = static_cast<std::uint64_t>(st.st_size);
    info.modifiedSeconds = st.st_mtim.tv_sec;
    info.modifiedNanoseconds = st.st_mtim.tv_nsec;
    info.device = st.st_dev;
    info.fileId = st.st_ino;
    info.writableByMode = (st.st_mode & 0222) != 0;
    return info;
}

int notRegularReason(FileKind kind) { return kind == FileKind::Directory ? EISDIR : kNotRegularFile; }

// Opens without blocking and keeps the descriptor only if it is a regular file.
int openRegular(const std::string& path, int flags, int& fd, struct stat& st) {
    FileInfo before = fileInfo(path);
    if (before.exists() && !before.regular()) return notRegularReason(before.kind);
    fd = ::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC, 0666);
    if (fd < 0) return errno;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        int reason = S_ISDIR(st.st_mode) ? EISDIR : kNotRegularFile;
        ::close(fd);
        fd = -1;
        return reason;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return 0;
}

}  // namespace

FileInfo fileInfo(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        FileInfo missing;
        missing.error = errno;
        return missing;
    }
    return infoOf(st);
}

bool isSymlink(const std::string& path) {
    struct stat st {};
    return ::lstat(path.c_str(), &st) == 0 && S_ISLNK(st.st_mode);
}

bool removeFile(const std::string& path) { return ::unlink(path.c_str()) == 0; }

bool makeDirectories(const std::string& path) {
    if (path.empty()) return false;
    if (fileInfo(path).kind == FileKind::Directory) return true;
    std::size_t slash = path.find_last_of('/', path.size() - 2);
    if (slash != std::string::npos && slash > 0) makeDirectories(path.substr(0, slash));
    ::mkdir(path.c_str(), 0777);
    return fileInfo(path).kind == FileKind::Directory;
}

struct InputFile::Handle {
    int fd = -1;
};

InputFile::InputFile() : handle_(std::make_unique<Handle>()) {}
InputFile::~InputFile() { close(); }

int InputFile::open(const std::string& path) {
    close();
    struct stat st {};
    error_ = openRegular(path, O_RDONLY, handle_->fd, st);
    size_ = error_ == 0 ? static_cast<std::uint64_t>(st.st_size) : 0;
    return error_;
}

void InputFile::close() {
    if (handle_->fd >= 0) ::close(handle_->fd);
    handle_->fd = -1;
}

bool InputFile::isOpen() const { return handle_->fd >= 0; }

long InputFile::read(char* buffer, std::size_t size) {
    if (handle_->fd < 0) return 0;
    for (;;) {
        ssize_t got = ::read(handle_->fd, buffer, size);
        if (got >= 0) return static_cast<long>(got);
        if (errno == EINTR) continue;
        error_ = errno;
        return -1;
    }
}

struct OutputFile::Handle {
    int fd = -1;
    std::string pending;  // written out in blocks, as a buffered stream would
};

OutputFile::OutputFile() : handle_(std::make_unique<Handle>()) {}
OutputFile::~OutputFile() { close(); }

int OutputFile::open(const std::string& path, bool append) {
    close();
    struct stat st {};
    error_ = openRegular(path, O_WRONLY | O_CREAT | (append ? O_APPEND : O_TRUNC), handle_->fd, st);
    return error_;
}

bool OutputFile::write(std::string_view data) {
    if (handle_->fd < 0) return false;
    handle_->pending.append(data);
    return handle_->pending.size() < 8192 || flush();
}

bool OutputFile::flush() {
    std::string& pending = handle_->pending;
    std::size_t done = 0;
    while (handle_->fd >= 0 && done < pending.size()) {
        ssize_t put = ::write(handle_->fd, pending.data() + done, pending.size() - done);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) {
            error_ = errno;
            pending.clear();
            return false;
        }
        done += static_cast<std::size_t>(put);
    }
    pending.clear();
    return true;
}

void OutputFile::close() {
    if (handle_->fd < 0) return;
    flush();
    ::close(handle_->fd);
    handle_->fd = -1;
}

bool OutputFile::isOpen() const { return handle_->fd >= 0; }

}  // namespace hlyd::os
