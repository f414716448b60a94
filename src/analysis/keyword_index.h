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
    // The entry of `word`, or 0.
    std::int32_t find(std::string_view word) const;

private:
    // The folding, fetched once when the index is built rather than at every word looked up.
    const std::array<unsigned char, 256>* upper_ = nullptr;
    std::vector<std::string> words_;
    std::vector<std::int32_t> slots_;  // entry numbers by hash; 0 is a free slot
    std::uint32_t mask_ = 0;
    std::size_t longest_ = 0;
};

}  // namespace hlyd
