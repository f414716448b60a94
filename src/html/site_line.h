#pragma once
// One line of a site page: its number as an anchor, then its tokens in their elements' classes,
// a token that names something of the project as a link to it. Text written here is never markup
// of its own, and the page is UTF-8 while the source is Windows-1252.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "html/html_records.h"

namespace hlyd {

// Where a token of the line leads: the token's place among the line's tokens, and the link.
struct TokenLink {
    std::int32_t index = -1;
    std::string href;
};

// `links` are in the order of their tokens; `numberWidth` is the room the line numbers take;
// `verticals` the columns, ascending, where connector lines cross the blanks ahead of the text.
std::string siteLine(const std::vector<ShownToken>& tokens, std::int32_t lineNo, int numberWidth,
                     const std::vector<TokenLink>& links, const std::vector<int>& verticals = {});

// Text from the source or a name of it, as page text or an attribute value.
std::string siteText(std::string_view text);

// A path of the system's, whose names are UTF-8 where they are valid UTF-8, else taken for
// Windows-1252 as the source is.
std::string sitePathText(std::string_view path);

}  // namespace hlyd
