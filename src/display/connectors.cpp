#include "display/connectors.h"

#include <algorithm>
#include <cmath>

#include "base/hlyd_error.h"
#include "display/display_state.h"
#include "display/font_metrics.h"
#include "platform/surface.h"

namespace hlyd {

namespace {

constexpr std::size_t kInitialLevels = 11;
constexpr std::size_t kGrowth = 5;

std::int32_t wholeTwips(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

// The column of a level's vertical line: a connector's width left of where the text of that level
// starts, measured from the text's left edge as its layout measures it, so that lines and text
// stay together however narrow the output and however closely its levels are drawn.
std::int32_t columnOf(Destination dest, int level, const AreaRecord& pos, float xOffset, bool indentSet, float xToken) {
    const LayoutMetrics& m = layoutMetrics();
    if (!indentSet) return wholeTwips(xToken - m.ConnectorSize[dest]);
    AreaRecord text = pos;
    text.Left += xOffset;
    return wholeTwips(double{text.Left} + levelIndent(level, text, dest) - m.ConnectorSize[dest]);
}

}  // namespace

// Where the stretch being drawn began, as HlydCLContinueBeforeTop saw it. A level that the stack
// reaches only later starts as that call would have left it: a line coming in from the top.
struct StretchTop {
    Destination dest = kDisplay;
    AreaRecord pos;
    float xOffset = 0;
};

struct ConnectorState {
    std::vector<ConnectorEntry> stack = std::vector<ConnectorEntry>(kInitialLevels);
    StretchTop stretch;
};
HLYD_PRIVATE_PART(ConnectorState)

namespace {

std::vector<ConnectorEntry>& stack() { return displayState().connectors->stack; }
StretchTop& stretch() { return displayState().connectors->stretch; }

ConnectorEntry enteringFromTop(int level) {
    return {false, columnOf(stretch().dest, level, stretch().pos, stretch().xOffset, true, 0),
            wholeTwips(stretch().pos.Top)};
}

// Nesting has no limit in a source file, so the stack grows, five levels at a time, to whatever
// level is met: openers, closers and the levels still open at the bottom alike. (A stack that
// grew only for openers left a closer deeper than its bound with no entry, and the view then
// failed; a level it never reached lost its line.)
void growStackTo(int level) {
    while (static_cast<int>(stack().size()) <= level) {
        std::size_t oldSize = stack().size();
        stack().resize(oldSize + kGrowth);
        stack()[oldSize - 1].Open = false;  // the old top level is cleared with the new ones, as it always was
        for (std::size_t l = oldSize; l < stack().size(); ++l) stack()[l] = enteringFromTop(static_cast<int>(l));
    }
}

Surface& surfaceOf(Destination dest) {
    Surface* s = surfaceFor(dest);
    if (!s) raiseRuntime(9, "hlydcl");
    return *s;
}

std::uint32_t connectorColour(Destination dest) {
    return displayAttributes().Elements[kElemKeyWords].slot[dest].ForeColor;
}

}  // namespace

std::vector<ConnectorEntry>& connectorStack() { return stack(); }
void resetConnectorStack() {
    stack().assign(kInitialLevels, ConnectorEntry{});
    stretch() = StretchTop{};
}

void HlydCLContinueBeforeTop(Destination dest, const AreaRecord& pos, std::int32_t, float xOffset) {
    stretch() = {dest, pos, xOffset};
    for (std::size_t level = 0; level < stack().size(); ++level)
        stack()[level] = enteringFromTop(static_cast<int>(level));
}

void HlydCLBeginOrEnd(Destination dest, const AreaRecord& pos, std::int32_t indent, const AreaRecord& posNext,
                      std::int32_t wraps, std::int32_t record, float xToken, const FormatRecord& format,
                      float& xOffset) {
    Surface& s = surfaceOf(dest);
    const SourceTables& t = theSourceTables();
    const AttributeRecord& keyWords = displayAttributes().Elements[kElemKeyWords].slot[dest];
    std::uint32_t colour = connectorColour(dest);
    float h = static_cast<float>(keyWords.Height);
    float yMid = pos.Top + (posNext.Top - pos.Top) / static_cast<float>(wraps + 1) - h / 2;
    const Statement& st = t.Statements[t.Records[record].FirstS];
    bool opens = st.Flags.has(StatementFlag::Indent);
    bool closes = st.Flags.has(StatementFlag::Outdent);
    if (indent < 0 || t.Records[record].FirstT != st.FirstToken) return;
    growStackTo(indent);
    ConnectorEntry copy = stack()[indent];
    std::int32_t column = columnOf(dest, indent, pos, xOffset, format.Indent != 0, xToken);
    if (closes) {
        if (!copy.Open) copy.X = column;
        s.line(static_cast<float>(copy.X), static_cast<float>(copy.Y), static_cast<float>(copy.X), yMid, colour);
    }
    if (opens) {
        copy = stack()[indent];
        if (!copy.Open) copy.Open = true, copy.X = column;
        copy.Y = wholeTwips(yMid);
    }
    if (copy.X >= 0) s.line(static_cast<float>(copy.X), yMid, xToken, yMid, colour);
    stack()[indent] = copy;
    if (closes && !opens) stack()[indent].Open = false;
}

void HlydCLContinueAfterBottom(Destination dest, float bottom, std::int32_t indent) {
    Surface& s = surfaceOf(dest);
    std::uint32_t colour = connectorColour(dest);
    if (indent > 0) growStackTo(indent - 1);
    for (std::int32_t level = 0; level < indent;) {
        std::int32_t x = stack()[level].X, y = stack()[level].Y;
        std::int32_t next = level + 1;
        for (; next < indent && stack()[next].X == x; ++next) y = std::min(y, stack()[next].Y);
        s.line(static_cast<float>(x), static_cast<float>(y), static_cast<float>(x), bottom, colour);
        level = next;
    }
}

}  // namespace hlyd
