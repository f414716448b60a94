#include "analysis/record_texts.h"

#include <algorithm>

namespace hlyd {

namespace {

// Past the few bytes a string keeps inside itself: a buffer of views is always on the heap, where
// moving the string leaves its bytes in place.
constexpr std::size_t kSmallestBuffer = 256;

}  // namespace

std::string_view RecordTexts::set(std::int32_t record, std::string_view line) {
    if (record < 1) return {};
    auto index = static_cast<std::size_t>(record);
    // Nearly every call is for the next record, with room reserved for it (on the heap, never in
    // the string's own few bytes), and goes straight to the append.
    bool roomOnHeap = buffer_.capacity() >= kSmallestBuffer && line.size() < buffer_.capacity() - buffer_.size();
    if (index != starts_.size() || !roomOnHeap) makeRoom(index, line.size());
    std::size_t at = buffer_.size();
    starts_.push_back(static_cast<std::uint32_t>(at));
    buffer_.append(line).push_back('\n');
    return {buffer_.data() + at, line.size()};
}

// Record `index` is to follow: one given again takes the place of those from it on, and records
// skipped before it stay empty.
void RecordTexts::makeRoom(std::size_t index, std::size_t lineBytes) {
    bool replacing = index < starts_.size();
    std::size_t kept = replacing ? starts_[index] : buffer_.size();
    std::size_t needed = kept + (replacing ? 0 : index - starts_.size()) + lineBytes + 1;
    if (buffer_.empty() && buffer_.capacity() < kSmallestBuffer) buffer_.reserve(std::max(needed, kSmallestBuffer));
    if (replacing || needed > buffer_.capacity()) moveToFreshBuffer(kept, needed);
    if (replacing) starts_.resize(index);
    while (starts_.size() < index) {
        starts_.push_back(static_cast<std::uint32_t>(buffer_.size()));
        buffer_.push_back('\n');
    }
}

// The bytes handed out stay where they are: the buffer is retired whole, and its first
// `keptBytes` go on in a fresh one of at least twice its room.
void RecordTexts::moveToFreshBuffer(std::size_t keptBytes, std::size_t neededBytes) {
    std::string fresh;
    fresh.reserve(std::max({neededBytes, 2 * buffer_.capacity(), kSmallestBuffer}));
    fresh.assign(buffer_, 0, keptBytes);
    retired_.push_back(std::move(buffer_));
    buffer_ = std::move(fresh);
}

void RecordTexts::clear() {
    buffer_.clear();
    retired_.clear();
    starts_.assign(1, 0);
}

std::string_view RecordTexts::line(std::int32_t record) const {
    if (record < 1 || record > count()) return {};
    std::size_t begin = starts_[static_cast<std::size_t>(record)];
    std::size_t end = buffer_.find('\n', begin);
    return std::string_view(buffer_).substr(begin, end - begin);
}

std::int32_t RecordTexts::recordAt(std::size_t offset) const {
    auto after = std::upper_bound(starts_.begin() + 1, starts_.end(), offset);
    return static_cast<std::int32_t>(after - starts_.begin()) - 1;
}

}  // namespace hlyd
