#include "analysis/source_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace hlyd {

int SourceFile::open(const std::string& path) {
    close();
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) return EISDIR;
    std::ifstream in(path, std::ios::binary);
    if (!in) return errno ? errno : ENOENT;
    in.seekg(0, std::ios::end);
    std::streamoff size = in.tellg();
    in.seekg(0, std::ios::beg);
    if (size > 0) {
        content_.resize(static_cast<std::size_t>(size));
        in.read(content_.data(), size);
        if (!in) return errno ? errno : EIO;
    } else {
        std::ostringstream buffer;  // not seekable (a pipe): read as it comes
        buffer << in.rdbuf();
        content_ = buffer.str();
    }
    open_ = true;
    return 0;
}

void SourceFile::openText(std::string content) {
    close();
    content_ = std::move(content);
    open_ = true;
}

void SourceFile::close() {
    content_.clear();
    content_.shrink_to_fit();
    pos_ = 0;
    open_ = false;
}

std::string_view SourceFile::readLine() {
    const char* base = content_.data();
    std::size_t size = content_.size();
    std::size_t start = pos_;
    std::size_t end = start;
    while (end < size && base[end] != '\n' && base[end] != '\r') ++end;
    pos_ = end;
    if (pos_ < size) {
        if (base[pos_] == '\r' && pos_ + 1 < size && base[pos_ + 1] == '\n') ++pos_;
        ++pos_;
    }
    return std::string_view(base + start, end - start);
}

}  // namespace hlyd
