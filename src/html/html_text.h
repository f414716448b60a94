#pragma once
// Text as it stands in the HTML document. Nothing written here is markup of its own, and no
// control character reaches the reader raw.
#include <cstddef>
#include <string>
#include <string_view>

namespace hlyd {

// The most bytes one byte of text is shown as ("&#x2400;").
constexpr std::size_t kWidestShownByte = 8;

// Source text written at `out`, which has room for kWidestShownByte bytes for each of its bytes:
// the angle brackets escaped, "&" and quotes as they stand. Returns the end of what was written.
char* writeSourceText(char* out, std::string_view text);
// Any other text (names of files, modules and procedures, dates), fit for an element or an
// attribute value.
std::string escapedText(const std::string& text);
// A font name as the style sheet can hold it.
std::string styleSafe(std::string name);

}  // namespace hlyd
