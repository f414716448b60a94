#pragma once
// What a text looks like on a surface when it holds control characters. The source keeps them as
// they are; a font has no glyph for them, so a string literal holding Chr(1) would print as if
// it were empty. They are shown in caret notation instead ("^A" for 0x01, "^?" for 0x7F), and a
// tab inside a literal or a comment as the blanks up to its stop.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace hlyd {

// A byte that prints as nothing: below a blank (other than a tab), or DEL.
bool invisibleControl(unsigned char c);
// How many characters a byte of the source takes when shown `column` characters from the code's
// start: two for a control byte ("^A"), a tab up to the next multiple of `tabWidth` (one blank
// when that is 0), one for any other.
std::size_t shownLength(unsigned char c, std::size_t column, std::int32_t tabWidth);
// The text, shown from `column`: control bytes in caret notation, tabs as blanks to their stop
// (a font draws a tab as nothing); the text itself when it holds neither.
std::string visibleText(std::string_view text, std::size_t column = 0, std::int32_t tabWidth = 0);
// The same into `shown`, a buffer the caller keeps: layout shows every token of a listing, and a
// kept buffer takes a token's text without an allocation.
const std::string& visibleText(std::string_view text, std::string& shown, std::size_t column, std::int32_t tabWidth);

}  // namespace hlyd
