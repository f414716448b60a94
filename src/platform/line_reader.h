#pragma once
// Lines of a regular file, read as a stream: the reader never holds more than one buffer and the
// longest line it is allowed to keep, however big the file or however long one of its lines.
// A line ends at CR LF, LF or CR, so files with any of these endings read the same.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/os.h"

namespace hlyd {

class LineReader {
public:
    // A line longer than `longestLine` comes back cut to `longestLine` + 1 bytes, which is enough
    // for the caller to see that it is too long; the rest of it is skipped.
    explicit LineReader(std::size_t longestLine, std::size_t chunk = std::size_t{64} * 1024);

    int open(const std::string& path);   // 0 or the errno (os::kNotRegularFile for no regular file)
    void openText(std::string content);  // for tests and tools: a file held in memory
    void close();

    bool isOpen() const { return open_; }
    bool atEnd();
    std::uint64_t size() const { return size_; }
    std::uint64_t offset() const { return consumed_ + start_; }  // how far the file has been read
    // The next line, without its line end; valid until the next call of readLine or atEnd.
    std::string_view readLine();
    bool lastLineCut() const { return cut_; }
    int error() const { return error_; }
    // The memory the reader holds for its buffer; bounded by the chunk and the longest line.
    std::size_t bytesHeld() const { return buffer_.capacity() + line_.capacity(); }

private:
    bool fill();  // moves what is unread to the front and reads more; false at the end
    void skipRestOfLine();
    bool passLineEnd(std::size_t at);
    std::string_view cutLine(std::size_t resumeAt);
    std::size_t findLineEnd(std::size_t from) const;

    std::size_t longest_;
    std::size_t chunk_;
    os::InputFile file_;
    std::string buffer_;
    std::string line_;       // a cut or last line handed out, a copy, since a fill would move its bytes
    std::size_t start_ = 0;  // first unread byte
    std::size_t end_ = 0;    // one past the last byte read into the buffer
    std::uint64_t consumed_ = 0;
    std::uint64_t size_ = 0;
    bool eof_ = false;
    bool open_ = false;
    bool cut_ = false;
    bool skipTail_ = false;
    int error_ = 0;
};

}  // namespace hlyd
