// Connector lines as the screen draws them, coordinates exact: blocks inside the view, crossing
// its top or bottom or enclosing it, Else, Indent off, and a stack that must grow.
#include <tuple>

#include "display/connectors.h"
#include "display/screen_emitter.h"
#include "fake_surface.h"
#include "shell/hlyd_error.h"

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
    load("If a Then\n"        // top 0
         "For i = 1 To 3\n"   // top 200, level 1: column 425, text at 510
         "x = i\n"
         "Next i\n"           // top 600
         "End If\n");         // top 800
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100},
                                          {425, 300, 510, 300},
                                          {425, 300, 425, 700}, {425, 700, 510, 700},
                                          {85, 100, 85, 900}, {85, 900, 170, 900}}));
}

TEST_F(ConnectorsTest, ElseClosesAndOpensOnTheSameColumn) {
    load("If a Then\nx = 1\nElse\ny = 2\nEnd If\n");
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100},
                                          {85, 100, 85, 500}, {85, 500, 170, 500},
                                          {85, 500, 85, 900}, {85, 900, 170, 900}}));
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
    // The closer's text stands four blanks in: 170 + 4 x 85 = 510, its column 425. Opened in
    // the view, the vertical stays on the opener's column.
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 100, 170, 100}, {85, 100, 85, 500}, {85, 500, 510, 500}}));
    // Opened above the view, it is on the closer's.
    EXPECT_EQ(show(2), (std::vector<Line>{{425, 0, 425, 300}, {425, 300, 510, 300}}));
}

TEST_F(ConnectorsTest, StatementBehindAnotherOnItsRecordDrawsNothing) {
    load("x = 1: For i = 1 To 3\ny = i\nNext i\n");
    // No stub at the For (its middle would be 100); Next finds its level as the top of the view
    // left it.
    EXPECT_EQ(show(1), (std::vector<Line>{{85, 0, 85, 500}, {85, 500, 170, 500}}));
}

TEST_F(ConnectorsTest, StackGrowsForDeepLevels) {
    load("If a Then\nEnd If\n");
    AreaRecord pos, next;
    pos.Left = 170;
    next.Top = 200;
    float xOffset = 0;
    ASSERT_EQ(connectorStack().size(), 11u);

    // Level 11 is one past the bound of 10: the opener grows the stack by five and is drawn,
    // at 11 x 340 + 85 = 3825.
    HlydCLBeginOrEnd(kDisplay, pos, 11, next, 0, 1, 3910, format(), xOffset);
    EXPECT_EQ(lines(), (std::vector<Line>{{3825, 100, 3910, 100}}));
    ASSERT_EQ(connectorStack().size(), 16u);
    EXPECT_TRUE(connectorStack()[11].Open);
    EXPECT_EQ(connectorStack()[11].X, 3825);
    EXPECT_EQ(connectorStack()[11].Y, 100);

    // A first opener at level 12 only grows the stack.
    resetConnectorStack();
    surface.calls.clear();
    HlydCLBeginOrEnd(kDisplay, pos, 12, next, 0, 1, 4250, format(), xOffset);
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(connectorStack().size(), 16u);

    // A closer one past the bound has no entry to be kept in: a bounds fault.
    resetConnectorStack();
    try {
        HlydCLBeginOrEnd(kDisplay, pos, 11, next, 0, 2, 3910, format(), xOffset);
        ADD_FAILURE() << "no fault";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, 9);
    }
}

}  // namespace
}  // namespace hlyd
