// Whole-file replacement on a POSIX system: a temporary file beside the target, given the target's
// mode and renamed over it. Where a file is replaced, the new data is synced before the rename and
// the directory after it, so that a crash leaves the old file or the new, never an empty one. A
// file that was not there is written without syncs: nothing the user had is at stake, and the
// syncs cost a batch run of small listings more than the writing (a crash loses at most that
// run's new output, which the run makes again).
// A run ended by a signal (the user's interrupt, a hang-up, a kill, a crash) removes its
// temporary files first: a PDF of thousands of pages leaves tens of megabytes otherwise.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

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

// The temporary files being written now. A signal handler may call little more than unlink(), and
// nothing that allocates, so the names wait in fixed storage; a slot's name is complete before the
// slot counts as used.
struct LiveTemp {
    volatile std::sig_atomic_t used = 0;
    char name[PATH_MAX] = {};
};
constexpr int kLiveTemps = 16;  // a run writes one or two files at once
LiveTemp liveTemps[kLiveTemps];

void removeLiveTempsAndDie(int signal) {
    for (LiveTemp& temp : liveTemps)
        if (temp.used) ::unlink(temp.name);
    // The handler was reset on entry: the signal now ends the program as it would have.
    ::raise(signal);
}

// Only where the signal has its default action: a handler of the host's, or an ignored hang-up
// under nohup, stays as it was.
void removeTempsOnSignals() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    for (int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) != 0 || (old.sa_flags & SA_SIGINFO) || old.sa_handler != SIG_DFL)
            continue;
        struct sigaction action {};
        action.sa_handler = removeLiveTempsAndDie;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESETHAND | SA_NODEFER;
        ::sigaction(signal, &action, nullptr);
    }
}

int rememberTemp(const std::string& name) {
    removeTempsOnSignals();
    if (name.size() >= PATH_MAX) return -1;
    for (int slot = 0; slot < kLiveTemps; ++slot) {
        if (liveTemps[slot].used) continue;
        std::memcpy(liveTemps[slot].name, name.c_str(), name.size() + 1);
        liveTemps[slot].used = 1;
        return slot;
    }
    return -1;
}

void forgetTemp(int& slot) {
    if (slot >= 0) liveTemps[slot].used = 0;
    slot = -1;
}

}  // namespace

struct AtomicWriter::Handle {
    int fd = -1;
    std::string target;
    std::string temp;
    int liveSlot = -1;  // where the signal handlers find the temporary name
    mode_t mode = 0;
    bool replacing = false;  // a file of the name was there: sync before and after the rename
    std::string pending;     // written out in blocks: a document comes a line at a time

    bool flush(int& error) {
        bool ok = flushView(pending, error);
        pending.clear();
        return ok;
    }

    bool flushView(std::string_view data, int& error) const {
        while (fd >= 0 && !data.empty()) {
            ssize_t put = ::write(fd, data.data(), data.size());
            if (put < 0 && errno == EINTR) continue;
            if (put <= 0) {
                error = put < 0 ? errno : EIO;
                return false;
            }
            data.remove_prefix(static_cast<std::size_t>(put));
        }
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
    h.replacing = ::stat(h.target.c_str(), &st) == 0;
    h.mode = h.replacing ? st.st_mode & 07777 : modeForNewFile();
    h.temp = shared::tempNameBeside(h.target);
    h.liveSlot = rememberTemp(h.temp);
    h.fd = ::open(h.temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (h.fd < 0) {
        error_ = errno;
        forgetTemp(h.liveSlot);
        h.temp.clear();
        return error_;
    }
    return error_ = 0;
}

bool AtomicWriter::write(std::string_view data) {
    Handle& h = *handle_;
    if (h.fd < 0) return false;
    // A block gathered by the caller goes out as it is, without a copy.
    if (h.pending.empty() && data.size() >= std::size_t{64} * 1024) {
        if (h.flushView(data, error_)) return true;
        abandon();
        return false;
    }
    h.pending.append(data);
    if (h.pending.size() < std::size_t{64} * 1024 || h.flush(error_)) return true;
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
    bool ok = ::fchmod(h.fd, h.mode) == 0 && (!h.replacing || ::fsync(h.fd) == 0);
    int reason = ok ? 0 : errno;
    if (::close(h.fd) != 0 && ok) {
        ok = false;
        reason = errno;
    }
    h.fd = -1;
    if (ok && ::rename(h.temp.c_str(), h.target.c_str()) == 0) {
        forgetTemp(h.liveSlot);
        if (h.replacing) syncDirectory(directoryOf(h.target));
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
    forgetTemp(h.liveSlot);
    h.temp.clear();
}

}  // namespace hlyd::os
