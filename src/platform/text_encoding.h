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

}  // namespace hlyd
