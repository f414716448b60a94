// Whole-file replacement on a POSIX system: a temporary file beside the target, synced, given the
// target's mode, renamed over it, and the directory synced so that the rename survives a crash.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "platform/os.h"
#include "platform/os_shared.h"

namespace hlyd::os {

namespace {

std::string directoryOf(const std::string& path) {
    std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The file a chain of symbolic links ends at; a link to nothing yet names the file to create.
std::string linkTarget(std::string path) {
    for (int hops = 0; hops < 40 && isSymlink(path); ++hops) {
        char buffer[PATH_MAX];
        ssize_t length = ::readlink(path.c_str(), buffer, sizeof buffer - 1);
        if (length <= 0) break;
        std::string next(buffer, static_cast<std::size_t>(length));
        path = next[0] == '/' ? next : directoryOf(path) + "/" + next;
    }
    return path;
}

void syncDirectory(const std::string& directory) {
    int fd = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

mode_t modeForNewFile() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

struct AtomicWriter::Handle {
    int fd = -1;
    std::string target;
    std::string temp;
    mode_t mode = 0;
    std::string pending;  // written out in blocks: a document comes a line at a time

    bool flush(int& error) {
        std::string_view data = pending;
        while (fd >= 0 && !data.empty()) {
            ssize_t put = ::write(fd, data.data(), data.size());
            if (put < 0 && errno == EINTR) continue;
            if (put <= 0) {
                error = put < 0 ? errno : EIO;
                return false;
            }
            data.remove_prefix(static_cast<std::size_t>(put));
        }
        pending.clear();
        return fd >= 0;
    }
};

AtomicWriter::AtomicWriter() : handle_(std::make_unique<Handle>()) {}
AtomicWriter::~AtomicWriter() { abandon(); }

int AtomicWriter::begin(const std::string& target) {
    abandon();
    Handle& h = *handle_;
    h.target = linkTarget(target);
    if (int problem = shared::replaceTargetProblem(fileInfo(h.target)); problem != 0) return error_ = problem;
    struct stat st {};
    h.mode = ::stat(h.target.c_str(), &st) == 0 ? st.st_mode & 07777 : modeForNewFile();
    h.temp = shared::tempNameBeside(h.target);
    h.fd = ::open(h.temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (h.fd < 0) return error_ = errno;
    return error_ = 0;
}

bool AtomicWriter::write(std::string_view data) {
    Handle& h = *handle_;
    if (h.fd < 0) return false;
    h.pending.append(data);
    if (h.pending.size() < 64 * 1024 || h.flush(error_)) return true;
    abandon();
    return false;
}

int AtomicWriter::commit() {
    Handle& h = *handle_;
    if (h.fd < 0) return error_ ? error_ : EBADF;
    if (!h.flush(error_)) {
        abandon();
        return error_;
    }
    // The data on the disk before the name: a crash leaves the old file or the new, never half.
    bool ok = ::fchmod(h.fd, h.mode) == 0 && ::fsync(h.fd) == 0;
    int reason = ok ? 0 : errno;
    if (::close(h.fd) != 0 && ok) {
        ok = false;
        reason = errno;
    }
    h.fd = -1;
    if (ok && ::rename(h.temp.c_str(), h.target.c_str()) == 0) {
        syncDirectory(directoryOf(h.target));
        h.temp.clear();
        return error_ = 0;
    }
    error_ = ok ? errno : reason;
    abandon();
    return error_;
}

void AtomicWriter::abandon() {
    Handle& h = *handle_;
    if (h.fd >= 0) ::close(h.fd);
    h.fd = -1;
    h.pending.clear();
    if (!h.temp.empty()) ::unlink(h.temp.c_str());
    h.temp.clear();
}

}  // namespace hlyd::os
