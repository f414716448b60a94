#pragma once
// One line of the document while it is built: a plain growing buffer that a piece is written
// into through a pointer, its room asked for once. A line of code is dozens of pieces (blanks,
// tags, texts), and a string checked and grown for each of them cost more than the copying.
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace hlyd {

// `count` blanks at `out`, written a word at a time: up to seven bytes past them are written too,
// which the caller has room for. Returns the end of the blanks.
inline char* writeBlanks(char* out, std::size_t count) {
    constexpr char kWord[8] = {' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};
    for (std::size_t i = 0; i < count; i += sizeof kWord) std::memcpy(out + i, kWord, sizeof kWord);
    return out + count;
}

class LineBuffer {
public:
    // Where `bytes` more may be written; the buffer grows first when they do not fit. What is
    // written counts once `commit` is given its end.
    char* room(std::size_t bytes) { return capacity_ - size_ >= bytes ? data_.get() + size_ : grow(bytes); }
    void commit(const char* end) { size_ = static_cast<std::size_t>(end - data_.get()); }

    void append(std::string_view text) {
        char* at = room(text.size());
        if (!text.empty()) std::memcpy(at, text.data(), text.size());
        size_ += text.size();
    }
    void appendBlanks(std::size_t count) { commit(writeBlanks(room(count + 8), count)); }
    void insertFront(std::string_view text);
    void clear() { size_ = 0; }

    std::size_t size() const { return size_; }
    std::string_view view() const { return {data_.get(), size_}; }

private:
    char* grow(std::size_t bytes);

    std::unique_ptr<char[]> data_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace hlyd
