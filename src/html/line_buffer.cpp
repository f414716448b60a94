#include "html/line_buffer.h"

namespace hlyd {

// Doubling keeps the growth of a long line to a few copies; one buffer serves every line, so a
// document pays for its longest line once.
char* LineBuffer::grow(std::size_t bytes) {
    std::size_t wanted = size_ + bytes;
    std::size_t capacity = capacity_ < 256 ? 256 : capacity_;
    while (capacity < wanted) capacity *= 2;
    auto data = std::make_unique_for_overwrite<char[]>(capacity);
    if (size_ > 0) std::memcpy(data.get(), data_.get(), size_);
    data_ = std::move(data);
    capacity_ = capacity;
    return data_.get() + size_;
}

void LineBuffer::insertFront(std::string_view text) {
    if (text.empty()) return;
    room(text.size());
    char* base = data_.get();
    if (size_ > 0) std::memmove(base + text.size(), base, size_);
    std::memcpy(base, text.data(), text.size());
    size_ += text.size();
}

}  // namespace hlyd
