#pragma once
// What a text looks like on a surface when it holds control characters. The source keeps them as
// they are; a font has no glyph for them, so a string literal holding Chr(1) would print as if
// it were empty. They are shown in caret notation instead ("^A" for 0x01, "^?" for 0x7F).
#include <string>

namespace hlyd {

// A byte that prints as nothing: below a blank (other than a tab), or DEL.
bool invisibleControl(unsigned char c);
// The text with each such byte in caret notation; the text itself when it holds none.
std::string visibleText(const std::string& text);

}  // namespace hlyd
