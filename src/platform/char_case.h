#pragma once
// Single-byte upper case for source text, which is Windows-1252: ASCII and the letters of
// Windows-1252. It stands at the bottom because settings, analysis and files all compare names
// and words without regard to case, and none of them owns the others' rules.
#include <string>
#include <string_view>

namespace hlyd {

unsigned char upperChar(unsigned char c);
std::string upperCase(std::string_view text);
bool equalsUpper(std::string_view text, std::string_view upperWord);

}  // namespace hlyd
