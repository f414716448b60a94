#pragma once
// The tips the print options show beside the heading template fields: one per macro, by string
// number (201 to 215).
#include <span>

namespace hlyd {

struct HeadingMacroTip {
    int number;
    const char* macro;
    const char* text;
};

std::span<const HeadingMacroTip> headingMacroTips();
// The tip's text, or nullptr for a number that has none.
const char* headingMacroTip(int number);

}  // namespace hlyd
