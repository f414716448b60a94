// A project line on each destination: the screen wraps a long line one blank in and leaves a blank
// line empty, the paper draws blank lines (their background shows) and breaks the page before a
// piece that would start below it, and the HTML document keeps every line whole.
#include <string>
#include <vector>

#include "display/project_line_layout.h"
#include "fake_surface.h"

namespace hlyd::test {
namespace {

struct Drawn {
    std::string piece;
    float x, y;
    bool first;
};

class ProjectLineLayoutTest : public SurfaceTest {
protected:
    ProjectLineHooks hooksFor(float indent, float wrapIndent, float lineHeight) {
        ProjectLineHooks hooks;
        hooks.indent = indent;
        hooks.wrapIndent = wrapIndent;
        hooks.lineHeight = lineHeight;
        if (lineHeight > 0) hooks.textWidth = [this](const std::string& text) { return surface.textWidth(text); };
        hooks.drawPiece = [this](const std::string& piece, float x, float y, bool first) {
            drawn.push_back({piece, x, y, first});
        };
        return hooks;
    }
    static AreaRecord area(float top) {
        AreaRecord pos;
        pos.Right = 2000;  // twenty characters of the fake surface
        pos.Top = top;
        pos.Bottom = 500;
        return pos;
    }
    std::vector<Drawn> drawn;
};

const std::string kLong = "Description=\"a line far too long for twenty characters\"";

TEST_F(ProjectLineLayoutTest, ScreenWrapsOneBlankInAndLeavesABlankLineEmpty) {
    ProjectLineHooks hooks = hooksFor(40, 100, 200);
    AreaRecord pos = area(0);
    EXPECT_EQ(layoutProjectLine("   ", pos, hooks), 0);
    EXPECT_TRUE(drawn.empty());
    EXPECT_EQ(pos.Top, 200);

    std::int32_t wraps = layoutProjectLine(kLong, pos, hooks);
    ASSERT_GE(wraps, 2);
    ASSERT_EQ(drawn.size(), static_cast<std::size_t>(wraps) + 1);
    std::string joined;
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        EXPECT_EQ(drawn[i].first, i == 0);
        EXPECT_EQ(drawn[i].x, i == 0 ? 40 : 100);
        EXPECT_EQ(drawn[i].y, 200 + 200 * static_cast<float>(i));
        EXPECT_LE(drawn[i].x + surface.textWidth(drawn[i].piece), pos.Right);
        joined += drawn[i].piece;
    }
    EXPECT_EQ(joined, kLong);
    EXPECT_EQ(pos.Top, 200 + 200 * static_cast<float>(drawn.size()));
}

TEST_F(ProjectLineLayoutTest, PaperDrawsBlankLinesAndBreaksThePageBeforeAPiece) {
    ProjectLineHooks hooks = hooksFor(100, -1, 200);
    hooks.blankLinesDrawn = true;
    int breaks = 0;
    bool goesOn = true;
    hooks.breakAtBottom = [&](AreaRecord& pos) {
        ++breaks;
        pos.Top = 0;
        return goesOn;
    };
    AreaRecord pos = area(600);
    EXPECT_EQ(layoutProjectLine("  ", pos, hooks), 0);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].piece, "  ");
    EXPECT_EQ(drawn[0].y, 0);  // on the new page
    EXPECT_EQ(breaks, 1);

    drawn.clear();
    pos.Top = 400;
    std::int32_t wraps = layoutProjectLine(kLong, pos, hooks);
    ASSERT_GE(wraps, 2);
    for (const Drawn& d : drawn) EXPECT_EQ(d.x, 100);  // a wrapped piece stays under the first
    EXPECT_EQ(drawn[1].y, 0);                          // the second piece went to the next page
    EXPECT_EQ(breaks, 2);

    drawn.clear();
    goesOn = false;
    pos.Top = 600;
    EXPECT_EQ(layoutProjectLine("Name=\"Stopped\"", pos, hooks), -1);
    EXPECT_TRUE(drawn.empty());
}

TEST_F(ProjectLineLayoutTest, HtmlKeepsEveryLineWholeAndLeavesBlankLinesOut) {
    ProjectLineHooks hooks = hooksFor(0, -1, 0);
    AreaRecord pos = area(0);
    EXPECT_EQ(layoutProjectLine(" ", pos, hooks), 0);
    EXPECT_EQ(layoutProjectLine(kLong, pos, hooks), 0);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].piece, kLong);
}

}  // namespace
}  // namespace hlyd::test
