#pragma once
// Source text is Windows-1252 bytes; tool output and the Qt boundary speak Unicode.
#include <cstdint>
#include <string>
#include <string_view>

namespace hlyd {

// The Unicode code point of a Windows-1252 byte (the five undefined bytes map to C1 controls).
std::uint32_t cp1252CodePoint(unsigned char c);

void appendUtf8(std::string& out, std::uint32_t codePoint);
std::string cp1252ToUtf8(std::string_view text);
// What the system says in UTF-8 (a month's name) as single-byte text; a character that
// Windows-1252 lacks, or a broken sequence, becomes "?".
std::string utf8ToCp1252(std::string_view text);

}  // namespace hlyd
