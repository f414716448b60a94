#include "analysis/record_texts.h"

#include <algorithm>

namespace hlyd {

void RecordTexts::set(std::int32_t record, std::string_view line) {
    if (record < 1) return;
    auto index = static_cast<std::size_t>(record);
    if (index < starts_.size()) {
        buffer_.resize(starts_[index]);
        starts_.resize(index);
    }
    while (starts_.size() < index) {
        starts_.push_back(buffer_.size());
        buffer_.push_back('\n');
    }
    starts_.push_back(buffer_.size());
    buffer_.append(line);
    buffer_.push_back('\n');
}

void RecordTexts::clear() {
    buffer_.clear();
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
