#include "display/connectors.h"

#include <cmath>

#include "display/font_metrics.h"
#include "platform/surface.h"
#include "shell/hlyd_error.h"

namespace hlyd {

namespace {

constexpr std::size_t kInitialLevels = 11;
constexpr std::size_t kGrowth = 5;

std::vector<ConnectorEntry> stack(kInitialLevels);

std::int32_t wholeTwips(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

// The column of a level's vertical line.
std::int32_t columnOf(int dest, int level, const AreaRecord& pos, float xOffset, bool indentSet, float xToken) {
    const LayoutMetrics& m = layoutMetrics();
    if (!indentSet) return wholeTwips(xToken - m.ConnectorSize.at(dest));
    double amount = displayAttributes().Format[dest].IndentAmount;
    return wholeTwips(level * m.IndentSize.at(dest) * amount + pos.Left - m.ConnectorSize.at(dest) + xOffset);
}

void growStack() {
    std::size_t oldUpper = stack.size() - 1;
    stack.resize(stack.size() + kGrowth);
    for (std::size_t level = oldUpper; level < stack.size(); ++level) stack[level].Open = false;
}

Surface& surfaceOf(int dest) {
    Surface* s = surfaceFor(dest);
    if (!s || (dest != 1 && dest != 2)) raiseRuntime(9, "hlydcl");
    return *s;
}

std::uint32_t connectorColour(int dest) { return displayAttributes().Elements[kElemKeyWords].slot[dest].ForeColor; }

}  // namespace

std::vector<ConnectorEntry>& connectorStack() { return stack; }
void resetConnectorStack() { stack.assign(kInitialLevels, ConnectorEntry{}); }

void HlydCLContinueBeforeTop(int dest, const AreaRecord& pos, std::int16_t, float xOffset) {
    for (std::size_t level = 0; level < stack.size(); ++level)
        stack[level] = {false, columnOf(dest, static_cast<int>(level), pos, xOffset, true, 0), wholeTwips(pos.Top)};
}

void HlydCLBeginOrEnd(int dest, const AreaRecord& pos, std::int16_t indent, const AreaRecord& posNext,
                      std::int32_t wraps, std::int32_t record, float xToken, const FormatRecord& format,
                      float& xOffset) {
    Surface& s = surfaceOf(dest);
    const SourceTables& t = theSourceTables();
    const AttributeRecord& keyWords = displayAttributes().Elements[kElemKeyWords].slot[dest];
    std::uint32_t colour = connectorColour(dest);
    float h = static_cast<float>(keyWords.Height);
    float yMid = pos.Top + (posNext.Top - pos.Top) / static_cast<float>(wraps + 1) - h / 2;
    const Statement& st = t.Statements[t.Records[record].FirstS];
    bool opens = st.Flags & kFlagIndent;
    bool closes = st.Flags & kFlagOutdent;
    int bound = static_cast<int>(stack.size()) - 1;
    if (indent > bound + 1 || t.Records[record].FirstT != st.FirstToken) {
        if (opens && bound < indent) growStack();
        return;
    }
    ConnectorEntry copy = indent <= bound ? stack[indent] : ConnectorEntry{};
    std::int32_t column = columnOf(dest, indent, pos, xOffset, format.Indent != 0, xToken);
    if (closes) {
        if (!copy.Open) copy.X = column;
        s.line(static_cast<float>(copy.X), static_cast<float>(copy.Y), static_cast<float>(copy.X), yMid, colour);
    }
    if (opens) {
        if (bound < indent) growStack();
        copy = stack[indent];
        if (!copy.Open) copy.Open = true, copy.X = column;
        copy.Y = wholeTwips(yMid);
    }
    if (copy.X >= 0) s.line(static_cast<float>(copy.X), yMid, xToken, yMid, colour);
    // A closer at a level one past the stack has no entry to keep: a bounds fault, as reported.
    if (indent > static_cast<int>(stack.size()) - 1) raiseRuntime(9, "HlydCLBeginOrEnd");
    stack[indent] = copy;
    if (closes && !opens) stack[indent].Open = false;
}

void HlydCLContinueAfterBottom(int dest, float bottom, std::int16_t indent) {
    Surface& s = surfaceOf(dest);
    std::uint32_t colour = connectorColour(dest);
    for (int level = 0; level < indent && level < static_cast<int>(stack.size()); ++level)
        s.line(static_cast<float>(stack[level].X), static_cast<float>(stack[level].Y), static_cast<float>(stack[level].X),
               bottom, colour);
}

}  // namespace hlyd
