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

// The length and three letters (first, middle, last) part the keywords well enough, and cost the
// same for a long name as for a short one: most words looked up are names, and no keyword.
std::uint32_t foldedHash(std::string_view word, const std::array<unsigned char, 256>& kUpper) {
    auto letter = [&](std::size_t i) { return std::uint32_t{kUpper[static_cast<unsigned char>(word[i])]}; };
    std::size_t n = word.size();
    std::uint32_t h = static_cast<std::uint32_t>(n) | letter(0) << 8 | letter(n / 2) << 16 | letter(n - 1) << 24;
    h *= 0x9E3779B1u;
    return h ^ (h >> 16);
}

bool sameFolded(std::string_view word, const std::string& upperWord, const std::array<unsigned char, 256>& kUpper) {
    if (word.size() != upperWord.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i)
        if (kUpper[static_cast<unsigned char>(word[i])] != static_cast<unsigned char>(upperWord[i])) return false;
    return true;
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
        std::uint32_t slot = foldedHash(words[k], *upper_) & mask_;
        while (slots_[slot] != 0) slot = (slot + 1) & mask_;
        slots_[slot] = static_cast<std::int32_t>(k);
        if (words[k].size() > longest_) longest_ = words[k].size();
    }
}

std::int32_t KeyWordIndex::find(std::string_view word) const {
    if (slots_.empty() || word.size() > longest_ || word.empty()) return 0;
    for (std::uint32_t slot = foldedHash(word, *upper_) & mask_; slots_[slot] != 0; slot = (slot + 1) & mask_)
        if (sameFolded(word, words_[static_cast<std::size_t>(slots_[slot])], *upper_)) return slots_[slot];
    return 0;
}

}  // namespace hlyd
