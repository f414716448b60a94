#pragma once
// Text as it stands in the HTML document. Nothing written here is markup of its own, and no
// control character reaches the reader raw.
#include <string>
#include <string_view>

namespace hlyd {

// Source text appended to `out`: the angle brackets escaped, "&" and quotes as they stand.
void appendSourceText(std::string& out, std::string_view text);
// Any other text (names of files, modules and procedures, dates), fit for an element or an
// attribute value.
std::string escapedText(const std::string& text);
// A font name as the style sheet can hold it.
std::string styleSafe(std::string name);

}  // namespace hlyd
