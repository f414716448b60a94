#include "html/site_connectors.h"

#include <algorithm>
#include <cmath>

#include "display/token_layout.h"
#include "html/gen_html.h"
#include "settings/attributes.h"

namespace hlyd {

namespace {

constexpr Destination kHTMLDestination = kDisplay;  // HTML follows the display settings
constexpr double kSmallestLineFont = 10;            // points: about a browser's own fixed-width font
constexpr double kReachPerPoint = 0.6;              // half a line of 1.2 times the font's size

bool opensBlock(const Record& r, const Statement& governing) {
    // Only the statement's first line opens it: the lines that continue it are no opener.
    return r.FirstT == governing.FirstToken && governing.Flags.has(StatementFlag::Indent);
}

}  // namespace

int shownTextColumn(const std::vector<ShownToken>& tokens) {
    int column = 0;
    for (const ShownToken& token : tokens) {
        column += std::max(0, token.spaces);
        if (!token.blankAfter) return column;
        column += static_cast<int>(token.text.size()) + 1;
    }
    return column;
}

std::string connectorStyleRule() {
    if (!displayAttributes().Format[kHTMLDestination].ConnectControls) return "";
    const DisplayAttributes& attributes = displayAttributes();
    std::uint32_t colour = attributes.Elements[kElemKeyWords].slot[kHTMLDestination].ForeColor;
    // A line is as high as its largest font, which may be larger than the blanks' own. The padding
    // reaches about half a line into the lines above and below, so that the verticals of
    // consecutive lines join without a gap and meet the opener and closer as the window's do.
    double largest = kSmallestLineFont;
    for (int e = 1; e <= kElementCount; ++e)
        largest = std::max(
                largest,
                static_cast<double>(attributes.Elements[static_cast<std::size_t>(e)].slot[kHTMLDestination].Font.Size));
    long tenths = std::lround(largest * kReachPerPoint * 10);
    return "pre.listing ." + std::string(kConnectorClass) + " { border-left: 1px solid #" + htmlColourText(colour) +
           "; padding: " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "pt 0; }\n";
}

std::vector<int> ListingConnectors::crossing(std::int32_t record, const std::vector<ShownToken>& tokens) {
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    std::vector<int> columns;
    if (!f.ConnectControls) return columns;
    const Record& r = theSourceTables().Records[record];
    int text = shownTextColumn(tokens);
    auto known = static_cast<std::int32_t>(openerColumns_.size());
    for (std::int32_t level = 0; level < r.Indent; ++level) {
        int column = level < known ? openerColumns_[static_cast<std::size_t>(level)] : -1;
        // A level with no opener seen stands where indentation puts its text, if it does.
        if (column < 0 && f.Indent)
            column =
                    static_cast<int>(std::min<std::int64_t>(std::int64_t{f.IndentAmount} * level, kFurthestTextColumn));
        if (column >= 0 && column < text) columns.push_back(column);
    }
    // Levels past the furthest column share it, and a source's own blanks may nest out of order.
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    if (!tokens.empty() && r.Indent >= 0 && opensBlock(r, governingStatement(record))) {
        // The levels deeper than a new block's belong to blocks inside it, none seen yet: a form
        // description's own columns must not stand for the code's.
        openerColumns_.resize(static_cast<std::size_t>(r.Indent) + 1, -1);
        openerColumns_[static_cast<std::size_t>(r.Indent)] = text;
    }
    return columns;
}

}  // namespace hlyd
