#pragma once
// Numbers and strings as a PDF file writes them.
#include <cstdint>
#include <string>
#include <string_view>

namespace hlyd {

// At most two decimals, no trailing zeros: "12.5", "-3", "0".
void appendNumber(std::string& out, double value);
std::string pdfNumber(double value);
void appendInteger(std::string& out, std::int64_t value);
void appendHex8(std::string& out, std::uint32_t v);
void appendHex16(std::string& out, std::uint32_t v);
// The bytes as they stand inside a literal string's parentheses: only what a reader would take
// for the string's end, an escape, or a line end to normalise is escaped.
void appendLiteralBytes(std::string& out, std::string_view bytes);

}  // namespace hlyd
