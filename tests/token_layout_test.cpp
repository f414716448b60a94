// The record layout rule on a surface of fixed metrics, coordinates exact: indentation, one line
// height for mixed fonts, wraps with and without the continuation mark, tokens too wide for a line.
#include <fstream>
#include <iterator>
#include <tuple>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "display/token_layout.h"
#include "display/visible_text.h"
#include "fake_surface.h"
#include "platform/byte_words.h"

namespace hlyd {
namespace {

using Print = std::tuple<std::string, float, float>;  // text, x, y
const std::string kMark = "\xBB";                     // a wrap's mark, in Windows-1252

// With the default settings every element is the fake's 100 x 200 font, so that
// WhiteSpaceSize = 600 / 7 = 85, IndentSize 85 (one level of 4 columns: 340), ContinueSize 200.
class TokenLayoutTest : public test::SurfaceTest {
protected:
    void load(const std::string& text) { showSource("layout.bas", text); }
    FormatRecord& format() { return displayAttributes().Format[kDisplay]; }
    AttributeRecord& element(int e) { return displayAttributes().Elements[e].slot[kDisplay]; }

    // Lays out one record between `left` and `right` from `top`; the prints land in `printed`.
    std::int32_t lay(std::int32_t record, float right, float top = 0, float left = 0) {
        surface.calls.clear();
        pos = AreaRecord{};
        pos.Left = left;
        pos.Top = top;
        pos.Right = pos.Width = right;
        std::int32_t wraps = layoutRecord(kDisplay, record, pos, RecordLayoutHooks{});
        printed.clear();
        for (const auto& c : surface.callsOf("print")) printed.emplace_back(c.text, c.x1, c.y1);
        return wraps;
    }

    AreaRecord pos;
    std::vector<Print> printed;
};

TEST_F(TokenLayoutTest, SplitFallsWhereTheWidthRunsOut) {
    std::vector<std::string> pieces;
    HlydTKSplitForOutput("ABCDEFGHIJ", pieces, 300, kDisplay);
    EXPECT_EQ(pieces, (std::vector<std::string>{"ABC", "DEF", "GHI", "J"}));
    HlydTKSplitForOutput("ABC", pieces, 300, kDisplay);  // exactly as wide: still whole
    EXPECT_EQ(pieces, (std::vector<std::string>{"ABC"}));
    HlydTKSplitForOutput("ABCD", pieces, 250, kDisplay);  // the estimate of 2.5 settles on 2
    EXPECT_EQ(pieces, (std::vector<std::string>{"AB", "CD"}));
    for (float width : {0.0f, -40.0f}) {  // no room at all: one character a piece
        HlydTKSplitForOutput("ABC", pieces, width, kDisplay);
        EXPECT_EQ(pieces, (std::vector<std::string>{"A", "B", "C"})) << width;
    }
    HlydTKSplitForOutput("", pieces, 300, kDisplay);
    EXPECT_EQ(pieces, (std::vector<std::string>{""}));
}

// A piece ends after a blank, an operator or a comma in its last third, so that words stay whole;
// with none there, where the width runs out.
struct BreakCase {
    const char* text;
    float width;
    std::vector<std::string> pieces;
};
class SplitBreakTest : public test::SurfaceTest, public ::testing::WithParamInterface<BreakCase> {};

TEST_P(SplitBreakTest, PiecesEndAtABreakWithinReach) {
    std::vector<std::string> pieces;
    HlydTKSplitForOutput(GetParam().text, pieces, GetParam().width, kDisplay);
    EXPECT_EQ(pieces, GetParam().pieces);
}

INSTANTIATE_TEST_SUITE_P(TokenLayout, SplitBreakTest,
                         ::testing::Values(BreakCase{"one two three four", 900, {"one two ", "three ", "four"}},
                                           BreakCase{"abcdefgh,ijkl", 1000, {"abcdefgh,", "ijkl"}},
                                           BreakCase{"abcdefg&hijk", 1000, {"abcdefg&", "hijk"}},
                                           BreakCase{"a+bcdefghij,klm", 1000, {"a+bcdefghi", "j,klm"}},  // out of reach
                                           BreakCase{"abcdefghij", 400, {"abcd", "efgh", "ij"}}));

// Counts what the split measures; "i" is half as wide as the other characters, so that the
// width of a piece can't be told from its length.
class MeasureCountingSurface : public test::FakeSurface {
public:
    float textWidth(const std::string& text) override {
        ++calls;
        characters += static_cast<long>(text.size());
        float width = 0;
        for (char c : text) width += c == 'i' ? 50.f : 100.f;
        return width;
    }
    long calls = 0;
    long characters = 0;
};
using SplitMeasureTest = test::SurfaceTestOf<MeasureCountingSurface>;

// A project line of megabytes is split into thousands of pieces: the measuring grows with the
// line, not with its square, and every piece is as long as fits.
TEST_F(SplitMeasureTest, MeasuringIsLinearInTheText) {
    std::string text;
    for (int n = 0; n < 40000; ++n) text += (n % 7 == 3 || n % 11 == 0) ? 'i' : 'x';
    surface.calls = surface.characters = 0;
    std::vector<std::string> pieces;
    HlydTKSplitForOutput(text, pieces, 1000, kDisplay);
    EXPECT_LE(surface.characters, 4L * static_cast<long>(text.size()));
    EXPECT_LE(surface.calls, 6L * static_cast<long>(pieces.size()) + 2);
    std::string joined;
    for (std::size_t p = 0; p < pieces.size(); ++p) {
        joined += pieces[p];
        ASSERT_LE(surface.textWidth(pieces[p]), 1000) << p;
        if (p + 1 < pieces.size()) {
            ASSERT_GT(surface.textWidth(pieces[p] + pieces[p + 1][0]), 1000) << p;
        }
    }
    EXPECT_EQ(joined, text);
}

TEST_F(TokenLayoutTest, IndentAndLineHeightHelpers) {
    Token token;
    token.setText("x");
    float indent = 0;
    std::string text;
    layoutMetrics().IndentSize[kDisplay] = 100;
    HlydTKApplyIndent(token, 3, indent, text, kDisplay);
    EXPECT_EQ(indent, 1200);  // 4 columns x 100 x level 3
    EXPECT_EQ(text, "x");

    // The walk stops once the ceiling is reached, so a taller token behind it isn't seen.
    element(kElemComments).Height = 150;
    element(kElemIdentifiers).Height = 250;
    element(kElemKeyWords).Height = 300;
    layoutMetrics().MaxFontHeight[kDisplay] = 250;
    std::vector<TokenElement> elements{0, kElemComments, kElemIdentifiers, kElemKeyWords};
    float height = 0;
    HlydTKGetMaxTokenHeight(height, elements, kDisplay, 1, 3);
    EXPECT_EQ(height, 250);
    HlydTKGetMaxTokenHeight(height, elements, kDisplay, 1, 1);
    EXPECT_EQ(height, 150);
}

// Traced measures read as numbers: "85", not "85.000000"; a fraction only where there is one.
TEST_F(TokenLayoutTest, TracedMeasuresAreWrittenAsNumbers) {
    const std::string log = dir + "/trace.log";
    theLog().LogOpen(log, 1);
    theDebug().TraceApplication = true;
    HlydDAValidateFonts();
    std::vector<std::string> pieces;
    HlydTKSplitForOutput("ABCD", pieces, 250, kDisplay);
    HlydTKSplitForOutput("ABCD", pieces, 102.5f, kDisplay);
    float height = 0;
    HlydTKGetMaxTokenHeight(height, {0, kElemKeyWords}, kDisplay, 1, 1);
    theDebug().TraceApplication = false;
    theLog().LogClose();
    std::ifstream in(log);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    for (const char* expected : {"ConnectorSize=85\r\n ContinueSize=200\r\n IndentSize=85\r\n MaxFontHeight=200\r\n"
                                 " WhiteSpaceSize=85\r\n TwipsPerPixelX=15\r\n TwipsPerPixelY=15",
                                 "|ABCD|\r\nWidth=250\r\n", "|ABCD|\r\nWidth=102.5\r\n", "MaxHeight=200"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    EXPECT_EQ(text.find(".000000"), std::string::npos);
}

TEST_F(TokenLayoutTest, MixedFontsStandOnOneBase) {
    // Literals in a font 150 wide and 300 high: WhiteSpaceSize = (5 x 100 + 150) / 7 = 92 and
    // MaxFontHeight 300, so the line is 300 high and the 200-high tokens sit 100 lower.
    surface.metricsByFont["Arial"] = {150, 300};
    element(kElemLiterals).FontName = element(kElemLiterals).Font.Name = "Arial";
    HlydDAValidateFonts();
    ASSERT_EQ(layoutMetrics().WhiteSpaceSize[kDisplay], 92);
    load("y = \"ab\" & z\nSub Foo()\nEnd Sub\n");

    EXPECT_EQ(lay(1, 12000, 1000), 0);
    // The gap in front of "&" is one blank of the literal's font on its left: 1000 + 150.
    EXPECT_EQ(printed,
              (std::vector<Print>{
                      {"y", 0, 1100}, {"=", 200, 1100}, {"\"ab\"", 400, 1000}, {"&", 1150, 1100}, {"z", 1350, 1100}}));
    auto boxes = surface.callsOf("box");
    ASSERT_EQ(boxes.size(), 5u);
    EXPECT_EQ(std::tie(boxes[2].x1, boxes[2].y1, boxes[2].x2, boxes[2].y2),
              std::make_tuple(400.f, 1000.f, 1000.f, 1300.f));
    EXPECT_EQ(boxes[2].colour, element(kElemLiterals).BackColor);
    EXPECT_EQ(pos.Top, 1300);

    // A procedure line is drawn wholly in the Procedures element, the keyword "Sub" included.
    element(kElemProcedures).ForeColor = 0x123456;
    lay(2, 12000);
    ASSERT_EQ(printed.size(), 4u);
    for (const auto& c : surface.callsOf("print")) EXPECT_EQ(c.colour, 0x123456u) << c.text;
    EXPECT_EQ(pos.Top, 200);
}

// The mark of a wrap is "»" in grey at XWrap on the line that goes on; it takes no room from the
// line it follows, and the text of that line starts behind it and a blank: 200 in.
TEST_F(TokenLayoutTest, WrapsWithAndWithoutTheWrapMark) {
    load("a = bb + cc\n");
    format().ContinueHonor = 0;

    format().ContinueGenerate = 1;
    EXPECT_EQ(lay(1, 700), 1);
    EXPECT_EQ(printed,
              (std::vector<Print>{
                      {"a", 0, 0}, {"=", 200, 0}, {"bb", 400, 0}, {kMark, 0, 200}, {"+", 200, 200}, {"cc", 400, 200}}));
    for (const auto& c : surface.callsOf("print")) EXPECT_EQ(c.colour == 0x767676u, c.text == kMark) << c.text;
    EXPECT_EQ(pos.Top, 400);

    // Unmarked: the wrapped line starts one WhiteSpaceSize in.
    format().ContinueGenerate = 0;
    EXPECT_EQ(lay(1, 700), 1);
    EXPECT_EQ(printed,
              (std::vector<Print>{{"a", 0, 0}, {"=", 200, 0}, {"bb", 400, 0}, {"+", 85, 200}, {"cc", 285, 200}}));
    EXPECT_EQ(pos.Top, 400);
}

// A token is measured and drawn in one style set once, but what a hook draws (a line number, a
// page's heading, a connector) leaves the surface in a style of its own: the text after it is
// drawn in its own colour again, on the record's first line and past a break alike.
TEST_F(TokenLayoutTest, TextAfterAHookKeepsItsOwnStyle) {
    load("a = Not bb And cc\n");
    format().ContinueHonor = format().ContinueGenerate = 0;
    element(kElemIdentifiers).ForeColor = 0x0000FF;
    element(kElemKeyWords).ForeColor = 0x00FF00;
    constexpr std::uint32_t kHookColour = 0xABCDEF;
    using Drawn = std::vector<std::pair<std::string, std::uint32_t>>;
    auto layWith = [this](const RecordLayoutHooks& hooks) {
        surface.calls.clear();
        pos = AreaRecord{};
        pos.Right = pos.Width = 1000;
        pos.Bottom = 300;  // "And" wraps to a line that does not fit: the break comes between its measuring and drawing
        EXPECT_EQ(layoutRecord(kDisplay, 1, pos, hooks), 1);
        Drawn drawn;
        for (const auto& c : surface.callsOf("print"))
            if (c.text != "#") drawn.emplace_back(c.text, c.colour);
        return drawn;
    };
    RecordLayoutHooks plain;
    plain.breakAtBottom = [](AreaRecord& area) { return area.Top = 0, area.Bottom = 4000, true; };
    Drawn own = layWith(plain);
    ASSERT_EQ(own.size(), 6u);
    EXPECT_EQ(own[2], (std::pair<std::string, std::uint32_t>{"Not", 0x00FF00u}));
    EXPECT_EQ(own[3], (std::pair<std::string, std::uint32_t>{"bb", 0x0000FFu}));

    auto drawOwn = [this] {
        surface.setForeColor(kHookColour);
        surface.print("#");
    };
    RecordLayoutHooks hooks;
    hooks.firstLine = [&](float, float) { drawOwn(); };
    hooks.beforeFirstToken = [&](std::int32_t) { drawOwn(); };
    hooks.breakAtBottom = [&](AreaRecord& area) { return drawOwn(), plain.breakAtBottom(area); };
    EXPECT_EQ(layWith(hooks), own);
    EXPECT_EQ(surface.callsOf("print").size(), own.size() + 3);
}

// A hook may lay out a record of its own while a record is being laid out (a contents entry at a
// page's break): the text of the token waiting to be drawn is still its own afterwards.
TEST_F(TokenLayoutTest, ARecordLaidOutFromAHookLeavesTheOuterTextAlone) {
    load("a = bbbb + cccc\nzzzzzzzz = 9\n");
    format().ContinueHonor = format().ContinueGenerate = 0;
    RecordLayoutHooks hooks;
    hooks.breakAtBottom = [](AreaRecord& area) {
        AreaRecord inner{};
        inner.Right = inner.Width = 12000;
        layoutRecord(kDisplay, 2, inner, RecordLayoutHooks{});
        return area.Top = 0, area.Bottom = 4000, true;
    };
    surface.calls.clear();
    pos = AreaRecord{};
    pos.Right = pos.Width = 1000;
    pos.Bottom = 300;  // "cccc" wraps, and the break before its line lays the inner record out
    layoutRecord(kDisplay, 1, pos, hooks);
    std::vector<std::string> texts;
    for (const auto& c : surface.callsOf("print")) texts.push_back(c.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"a", "=", "bbbb", "+", "zzzzzzzz", "=", "9", "cccc"}));
}

// The mark takes the font of the text it comes before, so that it stands on that line: comments
// in a font 150 wide and 300 high get a mark and a blank 300 wide, and are cut in their own font.
TEST_F(TokenLayoutTest, AMarkStandsInTheFontOfTheTextItComesBefore) {
    surface.metricsByFont["Arial"] = {150, 300};
    element(kElemComments).FontName = element(kElemComments).Font.Name = "Arial";
    element(kElemComments).Font.Italic = true;
    HlydDAValidateFonts();
    load("x = 1 ' one two three four\n");
    format().ContinueGenerate = 1;
    EXPECT_EQ(lay(1, 2000), 1);
    // The room for the pieces: 2000 - (300 + 92) + 1 = 1609, ten characters of 150.
    EXPECT_EQ(printed, (std::vector<Print>{{"x", 0, 100},
                                           {"=", 200, 100},
                                           {"1", 400, 100},
                                           {kMark, 0, 300},
                                           {"' one two ", 300, 300},
                                           {kMark, 0, 600},
                                           {"three four", 300, 600}}));
}

// The source's own " _" is its text: shown behind the line, with room kept for it, and never
// taken for a wrap's mark, while the wraps that layout makes on that line are marked as such.
TEST_F(TokenLayoutTest, SourceContinuationIsShownOnlyWhenHonoured) {
    load("a = bb + _\n    cc\n");
    format().ContinueGenerate = 0;
    format().ContinueHonor = 1;
    lay(1, 12000);
    EXPECT_EQ(printed, (std::vector<Print>{{"a", 0, 0}, {"=", 200, 0}, {"bb", 400, 0}, {"+", 700, 0}, {" _", 800, 0}}));
    // The continued line stands one WhiteSpaceSize in; its own four blanks are dropped.
    lay(2, 12000, 200);
    EXPECT_EQ(printed, (std::vector<Print>{{"cc", 85, 200}}));

    // "+" would end at 800, into the 200 kept for " _" before 900: it wraps, marked.
    format().ContinueGenerate = 1;
    lay(1, 900);
    EXPECT_EQ(printed,
              (std::vector<Print>{
                      {"a", 0, 0}, {"=", 200, 0}, {"bb", 400, 0}, {kMark, 0, 200}, {"+", 200, 200}, {" _", 300, 200}}));
    EXPECT_EQ(surface.callsOf("print").back().colour, element(kElemKeyWords).ForeColor);

    format().ContinueGenerate = 0;
    format().ContinueHonor = 0;
    lay(1, 12000);
    EXPECT_EQ(printed.size(), 4u);
    EXPECT_EQ(std::get<0>(printed.back()), "+");
}

TEST_F(TokenLayoutTest, TokensTooWideForTheirLine) {
    load("abcdefghijkl\n"
         "x = abcdefghijkl\n"
         "If a Then\nIf b Then\nIf c Then\n"
         "abcdefghijkl\n"
         "End If\nEnd If\nEnd If\n");
    format().ContinueGenerate = 1;

    // Alone on its line, it is split there without a mark or a line feed before the first piece.
    // The pieces behind marks stand at 200, so each is 500 - 200 = 300 wide: three characters.
    EXPECT_EQ(lay(1, 500), 3);
    EXPECT_EQ(printed, (std::vector<Print>{{"abc", 85, 0},
                                           {kMark, 0, 200},
                                           {"def", 200, 200},
                                           {kMark, 0, 400},
                                           {"ghi", 200, 400},
                                           {kMark, 0, 600},
                                           {"jkl", 200, 600}}));
    EXPECT_EQ(pos.Top, 800);

    // Behind another token it goes on to the next line, marked; its pieces are 800 - 285 + 1 wide.
    // Moving the token down isn't counted, the split is.
    EXPECT_EQ(lay(2, 800), 2);
    EXPECT_EQ(printed, (std::vector<Print>{{"x", 0, 0},
                                           {"=", 200, 0},
                                           {kMark, 0, 200},
                                           {"abcde", 200, 200},
                                           {kMark, 0, 400},
                                           {"fghij", 200, 400},
                                           {kMark, 0, 600},
                                           {"kl", 200, 600}}));

    // At level 3 the text would start at 1020, beyond the right edge of 1000: it starts at the
    // left edge, and its pieces are 1000 - 200 = 800 wide.
    ASSERT_EQ(theSourceTables().Records[6].Indent, 3);
    EXPECT_EQ(lay(6, 1000), 1);
    EXPECT_EQ(printed, (std::vector<Print>{{"abcdefgh", 85, 0}, {kMark, 0, 200}, {"ijkl", 200, 200}}));
}

// A control character has no glyph: it is shown in caret notation, in its token's attributes,
// and the text after it moves on by what is shown. Each "^A" stands for the source's byte, which
// the source keeps; a pair cut between two pieces is shown all the same.
TEST_F(TokenLayoutTest, ControlCharactersAreShownInCaretNotation) {
    load("s = \"a\x01"
         "b\x7f\" & t\nabc\x02"
         "defghijk\n");
    element(kElemLiterals).ForeColor = 0x0000C0;
    lay(1, 12000);
    EXPECT_EQ(printed, (std::vector<Print>{{"s", 0, 0},
                                           {"=", 200, 0},
                                           {"\"a", 400, 0},
                                           {"^A", 600, 0},
                                           {"b", 800, 0},
                                           {"^?", 900, 0},
                                           {"\"", 1100, 0},
                                           {"&", 1300, 0},
                                           {"t", 1500, 0}}));
    for (int n = 2; n <= 6; ++n) EXPECT_EQ(surface.callsOf("print")[n].colour, 0x0000C0u) << n;
    auto standins = surface.callsOf("standin");
    ASSERT_EQ(standins.size(), 2u);
    EXPECT_EQ(std::tie(standins[0].text, standins[0].x1), std::make_tuple(std::string("\x01"), 600.f));
    EXPECT_EQ(std::tie(standins[1].text, standins[1].x1), std::make_tuple(std::string("\x7f"), 900.f));
    EXPECT_NE(theSourceTables().Tokens[3].text().find('\x01'), std::string::npos);

    format().ContinueGenerate = 0;
    lay(2, 585);  // pieces of four: "abc^", "Bdef", ...
    ASSERT_GE(printed.size(), 2u);
    EXPECT_EQ(std::get<0>(printed[0]) + std::get<0>(printed[1]), "abc^Bdef");
    EXPECT_EQ(visibleText(std::string("\t\x1f\x80 x", 5)), std::string(" ^_\x80 x", 6));
    EXPECT_EQ(visibleText(std::string("a\t\x01\tb", 5), 1, 4), std::string("a  ^A  b", 8));
}

// A byte to show apart is found at every place of a short text and of a long one, and bytes next
// to it in value (a blank, 0x80, 0xFF, 0x7E) are not taken for one: the tests look at whole words.
TEST(VisibleTextTest, BytesShownApartFoundAtEveryPlace) {
    for (std::size_t length = 1; length <= 17; ++length) {
        for (int byte = 0; byte < 256; ++byte) {
            for (std::size_t at = 0; at < length; ++at) {
                std::string text(length, 'x');
                text[at] = static_cast<char>(byte);
                bool control = byte < 0x20, del = byte == 0x7F;
                ASSERT_EQ(anyBelowBlank(text, false), control) << byte << " at " << at << " of " << length;
                ASSERT_EQ(anyBelowBlank(text, true), control || del) << byte << " at " << at << " of " << length;
            }
        }
    }
    EXPECT_FALSE(anyBelowBlank("", true));
    EXPECT_EQ(visibleText(std::string("Dim a As Long\x7F", 14)), "Dim a As Long^?");
}

// Eight levels at 340 take 2720. Where they don't fit beside 40 characters (4000), two blanks (170)
// and the room for the mark (200), they share what is left evenly, and the text of the deepest
// keeps its 40.
struct NarrowCase {
    float width;
    float level1, level8;  // where the text of level 1 and of level 8 starts
};

class NarrowIndentTest : public TokenLayoutTest, public ::testing::WithParamInterface<NarrowCase> {};

TEST_P(NarrowIndentTest, DeepLevelsAreDrawnCloserTogether) {
    std::string text;
    for (int level = 0; level < 8; ++level) text += "If a Then\n";
    load(text + "abcdefghijklmnopqrst\nx = 1\n");
    planIndentation();
    NarrowCase c = GetParam();
    ASSERT_EQ(theSourceTables().Records[10].Indent, 8);
    lay(10, c.width);
    EXPECT_FLOAT_EQ(std::get<1>(printed[0]), c.level8);
    lay(2, c.width);
    EXPECT_FLOAT_EQ(std::get<1>(printed[0]), c.level1);
    // The long record at level 8 is never split a character a line.
    EXPECT_EQ(lay(9, c.width), 0);
}

INSTANTIATE_TEST_SUITE_P(TokenLayout, NarrowIndentTest,
                         ::testing::Values(NarrowCase{12000, 340, 2720},     // room enough: the indentation stands
                                           NarrowCase{6000, 203.75f, 1630},  // 6000 - 4370 = 1630 shared by 8
                                           // Not even 40 characters: a dozen levels keep a third of a blank each (340
                                           // for the 12), shared by the 8.
                                           NarrowCase{3000, 42.5f, 340}),
                         [](const auto& info) { return "Width" + std::to_string(static_cast<int>(info.param.width)); });

TEST_F(TokenLayoutTest, CommentOpeningARecordWrapsToItsOwnColumn) {
    load("If a Then\n' a long comment standing alone\nabcdefghijklmnopqrstuvwxyzabcde\nEnd If\n");
    format().ContinueGenerate = 0;
    // Level 1: text at 340. The comment's pieces are up to 1500 - 425 = 1075 wide (10 characters),
    // and end at a blank within reach; the first stays at 340, the following ones start one
    // WhiteSpaceSize in.
    EXPECT_EQ(lay(2, 1500), 3);
    EXPECT_EQ(printed,
              (std::vector<Print>{
                      {"' a long ", 340, 0}, {"comment ", 425, 200}, {"standing ", 425, 400}, {"alone", 425, 600}}));
    // Any other first token is pushed in at once, and split narrower: 1500 - 510 + 1 = 991.
    lay(3, 1500);
    EXPECT_EQ(printed[0], Print("abcdefghi", 425, 0));
}

TEST_F(TokenLayoutTest, IndentOffKeepsTheSourceBlanks) {
    load("Attribute VB_Name = \"M\"\nIf a Then\n      y = 1\n\tEnd If\n");
    format().Indent = 0;
    lay(3, 12000);
    EXPECT_EQ(printed[0], Print("y", 600, 0));  // six blanks of the font's 100
    lay(4, 12000);
    EXPECT_EQ(printed[0], Print("End", 400, 0));  // a tab goes to the stop at four

    format().SkipAttributes = 1;
    EXPECT_EQ(lay(1, 12000, 400), -1);
    EXPECT_TRUE(printed.empty());
    EXPECT_EQ(pos.Top, 400);
}

}  // namespace
}  // namespace hlyd
