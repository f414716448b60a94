#pragma once
// Where a text that has to be cut into pieces is best cut: a reader takes in a piece ending at a
// word's end, or after an operator or a comma, more easily than a word torn in two.
#include <cstddef>
#include <string_view>

namespace hlyd {

// A character after which a text may be cut without tearing a word or a number.
bool breaksAfter(char c);

// The length of a piece of `text` from `position`, given that `length` characters fit: shortened
// to end after a blank, an operator or a comma when one lies within the last third of it, and
// `length` itself when none does (a long word is then cut where the room runs out). A piece that
// ends the text is left as it is.
std::size_t pieceLengthAtBreak(std::string_view text, std::size_t position, std::size_t length);

}  // namespace hlyd
