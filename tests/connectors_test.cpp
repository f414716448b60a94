// Connector lines as the screen draws them, coordinates exact: blocks inside the view, crossing
// its top or bottom or enclosing it, Else, Indent off, and a stack that must grow.
#include <algorithm>
#include <cmath>
#include <tuple>

#include "display/connectors.h"
#include "display/screen_emitter.h"
#include "fake_surface.h"

namespace hlyd {
namespace {

using Line = std::tuple<float, float, float, float>;  // x1, y1, x2, y2

// Every line is 200 high, WhiteSpaceSize = ConnectorSize = 85. With connectors on the text starts
// at 2 x 85 = 170, a level's column is level x 340 + 170 - 85, and the middle of a record whose
// top is T lies at T + 200 - 200 / 2 = T + 100.
class ConnectorsTest : public test::SurfaceTest {
protected:
    void SetUp() override {
        test::SurfaceTest::SetUp();
        format().ConnectControls = 1;
        format().Separator = 0;  // its line would mix with the connectors
        emitterState().ViewHeight = 8000;
    }
    void load(const std::string& text) { showSource("blocks.bas", text); }
    FormatRecord& format() { return displayAttributes().Format[kDisplay]; }

    // The view drawn from `first` on a surface `height` high; its connector lines in order.
    std::vector<Line> show(std::int32_t first, float height = 8000) {
        surface.resize(12000, height);
        surface.calls.clear();
        HlydDSEmitRequestedData(first);
        return lines();
    }
    std::vector<Line> lines() const {
        std::vector<Line> out;
        std::uint32_t keyWords = displayAttributes().Elements[kElemKeyWords].slot[kDisplay].ForeColor;
        for (const auto& c : surface.callsOf("line")) {
            EXPECT_EQ(c.colour, keyWords);
            out.emplace_back(c.x1, c.y1, c.x2, c.y2);
        }
        return out;
    }
};

TEST_F(ConnectorsTest, NestedBlocksWhollyInsideTheView) {
    load("If a Then\n"       // top 0
         "For i = 1 To 3\n"  // top 200, level 1: column 425, text at 510
         "x = i\n"
         "Next i\n"    // top 600
         "End If\n");  // top 800
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100},
                                          {425, 300, 510, 300},
                                          {425, 300, 425, 700},
                                          {425, 700, 510, 700},
                                          {85, 100, 85, 900},
                                          {85, 900, 170, 900}}));
}

TEST_F(ConnectorsTest, ElseClosesAndOpensOnTheSameColumn) {
    load("If a Then\nx = 1\nElse\ny = 2\nEnd If\n");
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100},
                                          {85, 100, 85, 500},
                                          {85, 500, 170, 500},
                                          {85, 500, 85, 900},
                                          {85, 900, 170, 900}}));
    EXPECT_FALSE(connectorStack()[0].Open);
}

TEST_F(ConnectorsTest, BlocksCrossingTheEdgesOfTheView) {
    load("If a Then\nx = 1\ny = 2\nEnd If\n");
    // Opened above the view: the vertical comes in from the top, no opener stub.
    EXPECT_EQ(show(2), (std::vector<Line>{{85, 0, 85, 500}, {85, 500, 170, 500}}));
    // Running past the bottom (the view ends after record 2, at 400): down to that bottom.
    EXPECT_EQ(show(1, 300), (std::vector<Line>{{85, 100, 170, 100}, {85, 100, 85, 400}}));
    // Enclosing the whole view: one vertical, top to bottom.
    EXPECT_EQ(show(2, 300), (std::vector<Line>{{85, 0, 85, 400}}));
    // The opener is the last record drawn: its own block counts as open below it.
    EXPECT_EQ(show(1, 100), (std::vector<Line>{{85, 100, 170, 100}, {85, 100, 85, 200}}));
}

TEST_F(ConnectorsTest, IndentOffFollowsTheFirstTokenOfEachEnd) {
    load("If a Then\n  x = 1\n    End If\n");
    format().Indent = 0;
    // The closer's text stands four blanks of the font in: 170 + 4 x 100 = 570, its column 485.
    // Opened in the view, the vertical stays on the opener's column.
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100}, {85, 100, 85, 500}, {85, 500, 570, 500}}));
    // Opened above the view, it is on the closer's.
    EXPECT_EQ(show(2), (std::vector<Line>{{485, 0, 485, 300}, {485, 300, 570, 300}}));
}

TEST_F(ConnectorsTest, StatementBehindAnotherOnItsRecordDrawsNothing) {
    load("x = 1: For i = 1 To 3\ny = i\nNext i\n");
    // No stub at the For (its middle would be 100); Next finds its level as the top of the view
    // left it.
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 0, 85, 500}, {85, 500, 170, 500}}));
}

// "If" blocks nested `depth` deep: record r (1 to depth) opens level r - 1, record depth + 1 stands
// at level depth, and the closer of level L is record 2 x depth + 1 - L.
std::string nestedIfs(int depth) {
    std::string text;
    for (int level = 0; level < depth; ++level) text += "If a" + std::to_string(level) + " Then\n";
    text += "x = 1\n";
    for (int level = depth - 1; level >= 0; --level) text += "End If\n";
    return text;
}

float column(int level) { return static_cast<float>(level * 340 + 85); }
Line vertical(int level, float y1, float y2) { return {column(level), y1, column(level), y2}; }
Line stub(int level, float y) { return {column(level), y, column(level) + 85, y}; }
// The levels below `levels`, each coming in from the top of the view and running to `bottom`.
std::vector<Line> fromTopToBottom(int levels, float bottom) {
    std::vector<Line> out;
    for (int level = 0; level < levels; ++level) out.push_back(vertical(level, 0, bottom));
    return out;
}

// The stack starts at levels 0 to 10 and files nest deeper: a view that begins anywhere in a deep
// block, on a stack that never saw its openers, draws every level's line and never fails.
TEST_F(ConnectorsTest, DeepLevelsAreDrawnFromTheTopMiddleAndBottomOfTheirBlocks) {
    load(nestedIfs(41));  // levels 0 to 40; the text of level 40 stands at 13770
    auto wide = [&](std::int32_t first, float height, float width = 20000) {
        resetConnectorStack();
        surface.resize(width, height);
        surface.calls.clear();
        HlydDSEmitRequestedData(first);
        return lines();
    };
    auto join = [](std::vector<Line> a, const std::vector<Line>& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };
    // Two records a view (tops 0 and 200, bottom 400), one with a height of 100.
    // Top of the block of level 40: its opener's stub; then all 41 open levels down to the bottom,
    // level 40 from its stub.
    std::vector<Line> expected = join({stub(40, 100)}, fromTopToBottom(40, 400));
    expected.push_back(vertical(40, 100, 400));
    EXPECT_EQ(wide(41, 300), expected);
    // Its middle: every level from the top of the view to its bottom.
    EXPECT_EQ(wide(42, 100), fromTopToBottom(41, 200));
    // Its bottom: the closers of 40 and 39 come in from the top; the levels below run on.
    EXPECT_EQ(wide(43, 300), join({vertical(40, 0, 100), stub(40, 100), vertical(39, 0, 300), stub(39, 300)},
                                  fromTopToBottom(39, 400)));

    // Level 11, one past the first bound; level 12 is the first opener beyond it.
    expected = join({stub(11, 100)}, fromTopToBottom(11, 200));
    expected.push_back(vertical(11, 100, 200));
    EXPECT_EQ(wide(12, 100), expected);
    expected = join({stub(12, 100)}, fromTopToBottom(12, 200));
    expected.push_back(vertical(12, 100, 200));
    EXPECT_EQ(wide(13, 100), expected);
    EXPECT_EQ(wide(72, 300), join({vertical(11, 0, 100), stub(11, 100), vertical(10, 0, 300), stub(10, 300)},
                                  fromTopToBottom(10, 400)));
    EXPECT_GE(connectorStack().size(), 12u);

    // A view of 30 characters can't hold 40 beside the indentation; its 41 levels share the room
    // kept for a dozen at a third of a blank (28.33), and the text of the deeper ones is held at
    // 170 + 12 x 28.33 = 510. Their lines share the column in front of it, so that no stub crosses
    // the text, and one line there stands for them all: levels 0 to 11 have columns of their own.
    expected = {{425, 0, 425, 100}, {425, 100, 510, 100}};
    for (int level = 0; level <= 12; ++level) {
        float x = std::nearbyint(85 + static_cast<float>(level) * 85 / 3);
        expected.emplace_back(x, 0, x, 200);
    }
    EXPECT_EQ(wide(43, 100, 3000), expected);
}

}  // namespace
}  // namespace hlyd
