#include "analysis/keyword_index.h"

#include <array>

#include "platform/char_case.h"

namespace hlyd {

namespace {

// Made on first use: the folding it copies belongs to another file, whose tables may not be
// made yet while this file's statics are.
const std::array<unsigned char, 256>& upperTable() {
    static const std::array<unsigned char, 256> table = [] {
        std::array<unsigned char, 256> folded{};
        for (int c = 0; c < 256; ++c) folded[c] = upperChar(static_cast<unsigned char>(c));
        return folded;
    }();
    return table;
}

}  // namespace

void KeyWordIndex::build(const std::vector<std::string>& words) {
    upper_ = &upperTable();
    words_ = words;
    longest_ = 0;
    std::size_t size = 16;
    while (size < words.size() * 4) size *= 2;  // a quarter full: probes stay short
    slots_.assign(size, 0);
    mask_ = static_cast<std::uint32_t>(size - 1);
    for (std::size_t k = 1; k < words.size(); ++k) {
        // The first of equal words wins, as in a search; an empty word is never looked for.
        if (words[k].empty() || find(words[k]) != 0) continue;
        std::uint32_t slot = hash(words[k]) & mask_;
        while (slots_[slot] != 0) slot = (slot + 1) & mask_;
        slots_[slot] = static_cast<std::int32_t>(k);
        if (words[k].size() > longest_) longest_ = words[k].size();
    }
}

}  // namespace hlyd
