#pragma once
// Finding a word in the keyword table of one dialect, whatever its letter case: every word of the
// source is looked up, so the look-up folds each byte once and goes straight to its slot instead
// of upper-casing it again for each comparison of a search.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hlyd {

class KeyWordIndex {
public:
    // `words[k]` is the upper-case word of entry k; entry 0 is never found.
    void build(const std::vector<std::string>& words);
    // The entry of `word`, or 0. Inline: every word of the source is looked up, most of them names
    // that end at a free slot, where a call would cost as much as the look-up.
    std::int32_t find(std::string_view word) const {
        if (word.size() > longest_ || word.empty()) return 0;
        for (std::uint32_t slot = hash(word) & mask_; slots_[slot] != 0; slot = (slot + 1) & mask_)
            if (sameFolded(word, words_[static_cast<std::size_t>(slots_[slot])])) return slots_[slot];
        return 0;
    }

private:
    unsigned char upper(char c) const { return (*upper_)[static_cast<unsigned char>(c)]; }
    // The length and three letters (first, middle, last) part the keywords well enough, and cost
    // the same for a long name as for a short one: most words looked up are names, and no keyword.
    std::uint32_t hash(std::string_view word) const {
        std::size_t n = word.size();
        std::uint32_t h = static_cast<std::uint32_t>(n) | std::uint32_t{upper(word[0])} << 8 |
                          std::uint32_t{upper(word[n / 2])} << 16 | std::uint32_t{upper(word[n - 1])} << 24;
        h *= 0x9E3779B1u;
        return h ^ (h >> 16);
    }
    bool sameFolded(std::string_view word, const std::string& upperWord) const {
        if (word.size() != upperWord.size()) return false;
        for (std::size_t i = 0; i < word.size(); ++i)
            if (upper(word[i]) != static_cast<unsigned char>(upperWord[i])) return false;
        return true;
    }

    // The folding, fetched once when the index is built rather than at every word looked up.
    const std::array<unsigned char, 256>* upper_ = nullptr;
    std::vector<std::string> words_;
    std::vector<std::int32_t> slots_;  // entry numbers by hash; 0 is a free slot
    std::uint32_t mask_ = 0;
    std::size_t longest_ = 0;
};

}  // namespace hlyd
