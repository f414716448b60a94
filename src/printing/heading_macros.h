#pragma once
// The macros of the heading templates: what one token of a header or footer expands to.
#include <cstdint>
#include <string>

namespace hlyd {

// What a part knows when it expands its tokens.
struct HeadingMacroContext {
    bool printAsRoman = false;  // also marks a contents page
    std::int32_t page = 0;
    std::string procText;  // the procedure the caller names; empty to look it up
    std::int32_t currentRecord = 0;
};

struct HeadingPiece {
    std::string text;
    bool dynamic = false;  // the text changes from page to page
};

// One token, trimmed and not empty, as the part appends it (before its left blanks are cut).
HeadingPiece expandHeadingToken(const std::string& token, const HeadingMacroContext& context);

// The page number as printed: decimal, or in the contents pages' own small Roman numerals.
std::string pageNumberText(std::int32_t page, bool roman);

// The directory cut to `n` characters around "..." when it is longer.
std::string shortenedPath(const std::string& directory, int n);

// A token that begins with "<": the text up to its closing ">", then a blank.
std::string literalText(const std::string& token);

}  // namespace hlyd
