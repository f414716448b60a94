#pragma once
// Numbers and strings as a PDF file writes them.
#include <cstdint>
#include <string>

namespace hlyd {

// At most two decimals, no trailing zeros: "12.5", "-3", "0".
void appendNumber(std::string& out, double value);
std::string pdfNumber(double value);
void appendInteger(std::string& out, std::int64_t value);
void appendHex8(std::string& out, std::uint32_t v);
void appendHex16(std::string& out, std::uint32_t v);

}  // namespace hlyd
