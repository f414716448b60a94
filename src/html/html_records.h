#pragma once
// The code as both HTML outputs show it, the single document and the site: which records are
// shown, and each token's blanks ahead and element. Kept in one place, so that the two cannot
// come to show the same code differently.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/source_model.h"
#include "html/gen_html.h"

namespace hlyd {

struct ShownToken {
    std::string_view text;
    int spaces = 0;  // blanks ahead of it
    int element = 0;
    bool blankAfter = false;  // a line number that a blank follows
    std::int32_t index = -1;  // among the record's tokens, from 0; -1 for the continuation mark
};

// Numbers as the language reads them: digits with a sign, a point, an exponent; or &H and &O.
bool isNumericText(std::string_view text);
// Whether the settings show the statement in HTML: form descriptions and code apart.
bool shownByView(const Statement& s);
// The token the indentation counts from: past a line number.
std::int32_t firstIndentedToken(const Record& r);
// The tokens of `record` into `tokens`; none for a header line when attributes are skipped.
void shownTokens(std::int32_t record, std::int32_t firstToken, std::vector<ShownToken>& tokens);
// The same with the record's governing statement looked up before: a thread that makes lines
// apart from the records' order must not look it up, since the look-up fills in a record.
void shownTokens(std::int32_t record, std::int32_t firstToken, const Statement& governing,
                 std::vector<ShownToken>& tokens);
// The style rule of one element, in the settings' font and colour for HTML.
std::string htmlElementStyle(int cls, int element, ColourSyntax syntax = ColourSyntax::Bare);

}  // namespace hlyd
