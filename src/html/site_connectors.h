#pragma once
// Connector lines on a site page: the verticals that join a block's opener and its closer, one per
// open indentation level. A page draws them as left borders of the blanks ahead of a line's text,
// so that what a reader copies is still the code as shown, and so that they stand where the text
// stands at any font size.
#include <cstdint>
#include <string>
#include <vector>

#include "html/html_records.h"

namespace hlyd {

// The class of the blanks whose left border draws a vertical.
inline constexpr const char* kConnectorClass = "Connector";

// The column where a line's own text begins: past a line number, which keeps its place. Only the
// blanks ahead of it may carry a vertical.
int shownTextColumn(const std::vector<ShownToken>& tokens);

// The style rule of the verticals, in the colour the window draws them in; none when the settings
// draw no connectors.
std::string connectorStyleRule();

// Follows the blocks of a listing, its records taken in order from the first.
class ListingConnectors {
public:
    // The columns, ascending, where verticals cross the line of `record` that `tokens` show: one
    // for each level the line is nested in, where that block's opener's text begins. Then notes the
    // block that the record opens.
    std::vector<int> crossing(std::int32_t record, const std::vector<ShownToken>& tokens);

private:
    std::vector<int> openerColumns_;  // by indent level; -1 for a level no opener was seen at
};

}  // namespace hlyd
