#pragma once
// The operating-system port: everything the core asks of the system goes through here, so that
// one implementation per system (posix/, windows/) is all a port to another system needs.
//
// Failures are told in errno values on every system (the Windows side translates its codes), so
// the core keeps one vocabulary of reasons. A file that exists but is no regular file gives
// kNotRegularFile: it is never opened, so that a FIFO cannot block and a device cannot feed
// endless bytes.
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace hlyd::os {

// Not an errno of the system: the name is a directory, FIFO, socket or device.
constexpr int kNotRegularFile = 100001;
// Not an errno of the system: the target of a replace has no write permission in its mode.
constexpr int kReadOnlyFile = 100002;
// Not an errno of the system: an output would overwrite an input of the same run.
constexpr int kSameAsInput = 100003;

// The reason for an error number, for people: the system's text, or ours for the three above.
std::string errorText(int error);

enum class FileKind { Missing, Regular, Directory, Fifo, Socket, Device, Other };

struct FileInfo {
    FileKind kind = FileKind::Missing;
    int error = 0;  // why the name could not be looked at (ENOENT for a missing file)
    std::uint64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::uint64_t device = 0;  // device and file number together name one file, however spelt
    std::uint64_t fileId = 0;
    bool writableByMode = true;  // the permission bits (or read-only attribute) allow writing

    bool exists() const { return kind != FileKind::Missing; }
    bool regular() const { return kind == FileKind::Regular; }
    bool sameFileAs(const FileInfo& other) const {
        return exists() && other.exists() && device == other.device && fileId == other.fileId;
    }
};

// Looks at a name, through symbolic links.
FileInfo fileInfo(const std::string& path);
bool isSymlink(const std::string& path);
// 0, or the errno of a name that exists and cannot be looked at or is no regular file
// (kNotRegularFile); ENOENT for a missing one.
int regularFileProblem(const std::string& path);

// A regular file open for reading. Opening anything else fails without blocking.
class InputFile {
public:
    InputFile();
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    int open(const std::string& path);  // 0 or the errno
    void close();
    bool isOpen() const;
    // Reads up to `size` bytes; 0 at the end; -1 on a failure, with error() telling why.
    long read(char* buffer, std::size_t size);
    int error() const { return error_; }
    std::uint64_t size() const { return size_; }  // as it was when opened

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    int error_ = 0;
    std::uint64_t size_ = 0;
};

// A regular file written in place from its start or at its end (the log). A name that is no
// regular file is refused; a missing one is created.
class OutputFile {
public:
    OutputFile();
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    int open(const std::string& path, bool append);  // 0 or the errno
    bool write(std::string_view data);
    bool flush();
    void close();
    bool isOpen() const;
    int error() const { return error_; }

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    int error_ = 0;
};

// Writes a file whole or not at all: the data goes to a temporary file beside the target, is
// synced, takes the target's mode, and replaces the target by a rename; the directory is synced
// after. A symlinked target is written through: the file it points to is replaced, the link
// stays. A target whose mode forbids writing is refused and left as it is.
class AtomicWriter {
public:
    AtomicWriter();
    ~AtomicWriter();  // abandons an uncommitted write
    AtomicWriter(const AtomicWriter&) = delete;
    AtomicWriter& operator=(const AtomicWriter&) = delete;

    int begin(const std::string& target);  // 0 or the errno (kReadOnlyFile, kNotRegularFile, ...)
    bool write(std::string_view data);
    int commit();  // 0 or the errno; the target is untouched on failure
    void abandon();
    int error() const { return error_; }

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    int error_ = 0;
};

// Reads a regular file whole into `content`; 0 or the errno. For small files only (settings,
// keyword data, projects): source files are read a line at a time.
int readWholeFile(const std::string& path, std::string& content);

// Writes `data` as the whole new content of `target` through an AtomicWriter.
int replaceFile(const std::string& target, std::string_view data);

// The names in a directory ("." and ".." left out), in the order the system gives them.
// Returns 0 or the errno.
int listDirectory(const std::string& directory, std::vector<std::string>& names);
// How many directory listings were read in this run: lets tests see that a folder is read once.
std::uint64_t directoryListingsRead();

// True where file names are matched without regard to letter case and "\" separates (Windows).
bool windowsFileNames();

bool makeDirectories(const std::string& path);  // true when the directory exists afterwards
bool removeFile(const std::string& path);

// A new, empty file in the system's temporary directory, its name beginning with `prefix`.
std::string tempFileName(const std::string& prefix);
std::string tempDirectory();
std::string currentDirectory();
// The user's own folder ($HOME, %USERPROFILE%); the current directory when none is set.
std::string homeDirectory();
// The name made absolute against the current directory, with "." and ".." folded.
std::string absolutePath(const std::string& path);

// The system's own directory: the Windows directory, or /etc where there is none.
std::string systemDirectory();

long processId();
// Standard output and error pass bytes as they are, with no line ends added: the tools' output
// is the same on every system.
void useBinaryStandardStreams();
// The full name of the running program; empty when the system does not tell.
std::string executablePath();
// From now on, where the system can, the heap is served in large pages: for a run that will use
// megabytes (a large module's tables and texts, a print's fonts and pages), where a fault per
// small page cost nearly half the time. A second call changes nothing.
void preferLargeMemoryPages();

// A program part loaded at run time: the address of `symbol` in the shared library at `path`, which
// stays loaded until the process ends; nullptr with the system's words in `error` when it cannot be had.
void* loadProgramPart(const std::string& path, const char* symbol, std::string& error);

struct SystemVersion {
    std::string name;     // "Linux", "Windows NT"
    std::string release;  // "6.1.0", "10.0"
    std::string build;    // the kernel's build text or the build number
    std::string machine;  // "x86_64"
};
SystemVersion systemVersion();

// The user's locale: separators, whether it measures in metric units, the AM and PM texts, the
// short month names and the time separator. Texts are single-byte (Windows-1252) like the source.
struct LocaleFacts {
    std::string decimalSeparator;  // empty when the locale does not say
    std::string groupSeparator;    // the monetary thousands separator
    bool metric = false;
    std::string am, pm;
    std::array<std::string, 12> monthAbbreviations;  // January first; empty when the locale does not say
    std::string timeSeparator;                       // between hours and minutes; empty when not said
    std::string digitGroup;   // between groups of digits in plain numbers (UTF-8); empty for none
    std::string paperLocale;  // the locale's name for paper sizes: "en_US.UTF-8", "de-DE", "C"
};
LocaleFacts userLocale();

}  // namespace hlyd::os
