#include "display/piece_break.h"

#include <string_view>

namespace hlyd {

bool breaksAfter(char c) { return std::string_view(" \t,;:+-*/\\&=<>^()").find(c) != std::string_view::npos; }

std::size_t pieceLengthAtBreak(std::string_view text, std::size_t position, std::size_t length) {
    if (position + length >= text.size() || length < 3) return length;
    // Within reach: cutting any earlier would waste more than a third of the line.
    std::size_t shortest = length - length / 3;
    for (std::size_t k = length; k >= shortest; --k)
        if (breaksAfter(text[position + k - 1])) return k;
    return length;
}

}  // namespace hlyd
