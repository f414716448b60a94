#pragma once
// Testing several bytes of a text at once. Most texts a listing measures or shows are tokens
// shorter than a word: one byte at a time, their tail cost more than the whole words before it.
#include <cstdint>
#include <cstring>
#include <string_view>

namespace hlyd {

constexpr std::uint64_t kByteOnes = 0x0101010101010101u;
constexpr std::uint64_t kByteTops = kByteOnes << 7;

// The last one to seven bytes of a text as one word. Two loads that overlap cover them, and the
// room they leave takes copies of its bytes, so a test of whether any byte of the word is of some
// kind answers for the bytes alone.
inline std::uint64_t tailWord(const char* p, std::size_t n) {
    if (n >= 4) {
        std::uint32_t low, high;
        std::memcpy(&low, p, 4);
        std::memcpy(&high, p + n - 4, 4);
        return low | std::uint64_t{high} << 32;
    }
    if (n >= 2) {
        std::uint16_t low, high;
        std::memcpy(&low, p, 2);
        std::memcpy(&high, p + n - 2, 2);
        std::uint64_t half = low | std::uint32_t{high} << 16;
        return half | half << 32;
    }
    return kByteOnes * static_cast<unsigned char>(*p);
}

// Whether any byte of `text` is below a blank (`alsoDel`: or is DEL). Subtracting from each byte
// borrows into the top bit of a byte that was below the value; bytes after a true one may be
// flagged too, which does not change the answer.
inline bool anyBelowBlank(std::string_view text, bool alsoDel) {
    auto holds = [alsoDel](std::uint64_t word) {
        std::uint64_t hits = word - kByteOnes * 0x20;
        if (alsoDel) hits |= (word ^ (kByteOnes * 0x7F)) - kByteOnes;
        return (hits & ~word & kByteTops) != 0;
    };
    std::size_t i = 0;
    for (std::uint64_t word; i + 8 <= text.size(); i += 8) {
        std::memcpy(&word, text.data() + i, 8);
        if (holds(word)) return true;
    }
    return i < text.size() && holds(tailWord(text.data() + i, text.size() - i));
}

}  // namespace hlyd
