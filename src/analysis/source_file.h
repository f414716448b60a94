#pragma once
// A source file opened for line input: read whole as bytes, handed out one line at a time.
// A line ends at CR LF, LF or CR, so files with any of these endings read the same.
#include <string>
#include <string_view>

namespace hlyd {

class SourceFile {
public:
    // Reads the whole file; returns 0 or the errno of the failure.
    int open(const std::string& path);
    void openText(std::string content);  // for tests and tools: a file held in memory
    void close();

    bool isOpen() const { return open_; }
    bool atEnd() const { return pos_ >= content_.size(); }
    std::size_t size() const { return content_.size(); }
    std::size_t offset() const { return pos_; }  // how far the file has been read
    // The next line, without its line end; valid until the next call.
    std::string_view readLine();

private:
    std::string content_;
    std::size_t pos_ = 0;
    bool open_ = false;
};

}  // namespace hlyd
