// The parts of the operating-system port that are the same on every system.
#include <cerrno>
#include <cstring>

#include "platform/os.h"
#include "platform/os_shared.h"

namespace hlyd::os {

std::string errorText(int error) {
    switch (error) {
        case kNotRegularFile: return "Not a regular file";
        case kReadOnlyFile: return "The file is read-only";
        case kSameAsInput: return "The output would replace an input of this run";
        default: return std::strerror(error);
    }
}

int regularFileProblem(const std::string& path) {
    FileInfo info = fileInfo(path);
    if (info.error != 0) return info.error;  // missing, or there and not to be looked at
    if (!info.exists()) return ENOENT;
    return info.regular() ? 0 : kNotRegularFile;
}

int readWholeFile(const std::string& path, std::string& content) {
    content.clear();
    InputFile file;
    if (int e = file.open(path); e != 0) return e;
    char block[64 * 1024];
    for (;;) {
        long got = file.read(block, sizeof block);
        if (got < 0) return file.error();
        if (got == 0) return 0;
        content.append(block, static_cast<std::size_t>(got));
    }
}

int replaceFile(const std::string& target, std::string_view data) {
    AtomicWriter writer;
    if (int e = writer.begin(target); e != 0) return e;
    if (!writer.write(data)) return writer.error();
    return writer.commit();
}

namespace {
std::uint64_t listingsRead = 0;
}

std::uint64_t directoryListingsRead() { return listingsRead; }

namespace shared {

int replaceTargetProblem(const FileInfo& target) {
    if (!target.exists()) return 0;
    if (!target.regular()) return target.kind == FileKind::Directory ? EISDIR : kNotRegularFile;
    // The mode, not a test of access: to root every file is writable, yet the user's choice stands.
    return target.writableByMode ? 0 : kReadOnlyFile;
}

std::string tempNameBeside(const std::string& target) {
    // The longest name of one folder entry that the file systems of today allow.
    constexpr std::size_t kNameMax = 255;
    static unsigned serial = 0;
    std::size_t cut = target.find_last_of("\\/");
    std::string directory = cut == std::string::npos ? std::string() : target.substr(0, cut + 1);
    std::string name = cut == std::string::npos ? target : target.substr(cut + 1);
    std::string tail = "." + std::to_string(processId()) + "." + std::to_string(++serial) + ".tmp";
    // The target's own name tells a user whose file it is; a target whose name is near the limit
    // already gets a short one, or its temporary file could not be made at all.
    if (1 + name.size() + tail.size() > kNameMax) name = "halyard";
    return directory + "." + name + tail;
}

void countDirectoryListing() { ++listingsRead; }

}  // namespace shared

}  // namespace hlyd::os
