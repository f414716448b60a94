#pragma once
// A source file opened for line input, read as a stream so that a file of any size costs no more
// memory than one buffer and one line. A line ends at CR LF, LF or CR, so files with any of these
// endings read the same. A line longer than a record may be comes back cut to one byte more than
// that, enough to be seen as too long.
#include <string>
#include <string_view>

#include "analysis/basiclan_state.h"
#include "platform/line_reader.h"
#include "platform/os.h"

namespace hlyd {

class SourceFile {
public:
    // From this size on, a file's tables and texts are megabytes, worth large memory pages.
    static constexpr std::uint64_t kLargeFileBytes = std::uint64_t{256} * 1024;

    // Returns 0 or the errno of the failure; only a regular file is opened.
    int open(const std::string& path) {
        int error = reader_.open(path);
        if (error == 0 && reader_.size() >= kLargeFileBytes) os::preferLargeMemoryPages();
        return error;
    }
    void openText(std::string content) { reader_.openText(std::move(content)); }  // for tests and tools
    void close() { reader_.close(); }

    bool isOpen() const { return reader_.isOpen(); }
    bool atEnd() { return reader_.atEnd(); }
    std::uint64_t size() const { return reader_.size(); }
    std::uint64_t offset() const { return reader_.offset(); }  // how far the file has been read
    // The next line, without its line end; valid until the next call.
    std::string_view readLine() { return reader_.readLine(); }
    std::size_t bytesHeld() const { return reader_.bytesHeld(); }

private:
    LineReader reader_{static_cast<std::size_t>(kMaxRecordLength)};
};

}  // namespace hlyd
