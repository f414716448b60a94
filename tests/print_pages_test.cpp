// Printing on the recording printer, to the twip: columns, breaks, numbering, headings, ranges
// and contents. The printer's figures: every character is 144 twips wide at 12 points, a line is
// 288 high; the page is US Letter with offsets of 360 twips.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "display/font_metrics.h"
#include "files/file_table.h"
#include "files/print_history.h"
#include "platform/printer.h"
#include "files/open_for_run.h"
#include "printing/contents.h"
#include "printing/print_file.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

// The usable area of the default margins on this printer, and what stands above the first line.
constexpr float kLeft = 1080;  // margin 1440 less the offset
constexpr float kCharWidth = 144;
const std::string kWrapMark = "\xBB";  // "»" in Windows-1252
constexpr float kLineHeight = 288;
constexpr float kWhiteSpace = 123;       // six mean widths over seven
constexpr float kFirstLine = 792;        // area top 360, the heading's line, and half a line
constexpr float kLastLineLimit = 14220;  // the bottom limit less the footing's line and half a line
// With a bottom margin of 11000: 4372 less the footing's line and half a line. A line that begins
// below this less its height runs into the footing.
constexpr float kShortPageBottom = 3940;

class PrintPagesTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        bareHeadings();
        HlydSettings& s = hlydSettings();
        s.LineNumbers = false;
        s.TableOfContents = false;
        s.ProcContentsPrint = false;
        format().ConnectControls = 0;
        format().Separator = 0;
        format().ProcSkip = 'N';
    }
    FormatRecord& format() { return displayAttributes().Format[kPrint]; }
    // Settings changed after the start take effect as the options dialog would make them.
    void useColumns(std::int16_t columns, std::int32_t gutter, bool separator) {
        pageSettings().Columns = ColumnSpec{columns, separator, gutter, 0};
        InitPrinter();
    }
    PrintRunResult print(const std::string& text, PrintRunRequest request = {}) {
        showSource("module.bas", text);
        events.clear();
        return runPrint(request);
    }
    std::vector<PrintEvent> of(PrintEvent::Kind kind) const { return test::eventsOf(events, kind); }
    // The first text printed that is exactly `text`.
    PrintEvent text(const std::string& wanted) const {
        for (const PrintEvent& e : events)
            if (e.kind == PrintEvent::Text && e.text == wanted) return e;
        ADD_FAILURE() << "not printed: " << wanted;
        return {};
    }
    bool printed(const std::string& wanted) const { return test::textPrinted(events, wanted); }
};

using test::procedures;

TEST_F(PrintPagesTest, OneColumnRunsDownThePageAndOnToTheNext) {
    // A line may begin while it ends above the bottom limit: 46 lines from 792 to 14220.
    print(procedures(1, 60));
    PrintEvent first = text("Sub");
    EXPECT_EQ(first.x1, kLeft);
    EXPECT_EQ(first.y1, kFirstLine);
    EXPECT_EQ(first.page, 1);
    PrintEvent last = text("X1_45");
    EXPECT_EQ(last.page, 1);
    EXPECT_EQ(last.y1, kFirstLine + 45 * kLineHeight);
    PrintEvent next = text("X1_46");
    EXPECT_EQ(next.page, 2);
    EXPECT_EQ(next.y1, kFirstLine);
    ASSERT_EQ(of(PrintEvent::EndDoc).size(), 1u);
    EXPECT_EQ(recorders.printer()->pagesDelivered(), 2);
}

TEST_F(PrintPagesTest, ThreeColumnsWithGuttersAndSeparatorLines) {
    useColumns(3, 720, true);
    EXPECT_EQ(printState().Columns.Width, 2880);  // (10080 - 2 x 720) / 3
    // 20 characters a column at 12 points: the code is fitted down to the least size, 6 points,
    // where a line is 144 high. 93 lines a column: Sub and X1_1 to X1_92, X1_93 to X1_185,
    // X1_186 to X1_278.
    constexpr float kFittedLine = kLineHeight / 2;
    print(procedures(1, 285));
    EXPECT_EQ(text("X1_92").x1, kLeft);
    EXPECT_EQ(text("X1_92").size, 6);
    EXPECT_EQ(text("X1_92").y1, kFirstLine + 92 * kFittedLine);
    PrintEvent second = text("X1_93");
    EXPECT_EQ(second.page, 1);
    EXPECT_EQ(second.x1, kLeft + 2880 + 720);
    EXPECT_EQ(second.y1, kFirstLine);
    EXPECT_EQ(text("X1_186").x1, kLeft + 2 * (2880 + 720));
    EXPECT_EQ(text("X1_278").page, 1);
    EXPECT_EQ(text("X1_279").page, 2);
    EXPECT_EQ(text("X1_279").x1, kLeft);
    std::vector<PrintEvent> lines = of(PrintEvent::Line);
    ASSERT_EQ(lines.size(), 2u);                     // between the columns of page 1; page 2 has one column in use
    EXPECT_EQ(lines[0].x1, kLeft + 2880 + 720 / 2);  // in the middle of the gutter
    EXPECT_EQ(lines[1].x1, kLeft + 2880 + 720 + 2880 + 720 / 2);
    EXPECT_EQ(lines[0].y1, kFirstLine);
    EXPECT_EQ(lines[0].y2, kLastLineLimit);
    EXPECT_EQ(lines[0].width, 5);
}

TEST_F(PrintPagesTest, ProceduresStartOnANewPageOrColumnAsTheOptionSays) {
    format().ProcSkip = 'P';
    print(procedures(2, 2));
    EXPECT_EQ(text("X1_1").page, 1);
    EXPECT_EQ(text("X2_1").page, 2);
    EXPECT_EQ(text("X2_1").y1, kFirstLine + kLineHeight);

    useColumns(2, 720, false);
    format().ProcSkip = 'C';
    print(procedures(3, 2));
    EXPECT_EQ(text("X2_1").page, 1);
    EXPECT_EQ(text("X2_1").x1, kLeft + (10080 - 720) / 2 + 720);
    EXPECT_EQ(text("X3_1").page, 2);  // "C" in the last column is a new page

    format().ProcSkip = 'N';
    print(procedures(2, 2));
    EXPECT_EQ(text("X2_1").page, 1);
    EXPECT_EQ(text("X2_1").x1, kLeft);
}

TEST_F(PrintPagesTest, AProcedureNeedsItsOrphanLinesBelowItsStart) {
    format().Orphan = 3;
    // P1 fills 44 lines (Sub, 42 body lines, End Sub); P2 would start on line 45 of 46, with two
    // lines under it: three are asked for, and it goes to the next page.
    auto secondAfter = [](int firstBody) {
        return procedures(1, firstBody) + procedures(2, 1).substr(procedures(1, 1).size());
    };
    print(secondAfter(42));
    EXPECT_EQ(text("X2_1").page, 2);
    // With one orphan line asked for, a declaration still keeps two lines of its body with it.
    format().Orphan = 1;
    print(secondAfter(42));
    EXPECT_EQ(text("X2_1").page, 2);
    print(secondAfter(41));
    EXPECT_EQ(text("X2_1").page, 1);
}

TEST_F(PrintPagesTest, ARecordWrappedOverAColumnBreakCarriesItsMark) {
    useColumns(2, 720, false);
    // 4680 twips a column: 32 characters at 12 points, too few; fitted to 7.5 points, 52 characters
    // of 90 twips on lines 180 high, 74 lines a column.
    std::string body;
    for (int l = 1; l <= 72; ++l) body += "Y" + std::to_string(l) + " = 1\n";
    std::string longLine = "Z = A1";
    for (int n = 2; n <= 13; ++n) longLine += " + A" + std::to_string(n);
    print("Sub P()\n" + body + longLine + "\nEnd Sub\n");
    // The record begins on the last line of the first column and goes on at the top of the next,
    // where the mark stands at the record's start, ahead of the text.
    std::vector<PrintEvent> marks;
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.text == kWrapMark) marks.push_back(e);
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].y1, kFirstLine);
    EXPECT_GE(marks[0].x1, kLeft + 4680 + 720);
    PrintEvent last = text("A13");
    EXPECT_EQ(last.size, 7.5);
    EXPECT_EQ(last.y1, kFirstLine);
    EXPECT_GT(last.x1, marks[0].x1);
    EXPECT_FALSE(printed(" _"));
}

// Every run of a wrapped record, its marks too, ends within its column: a comment or a literal
// split into pieces, a statement wrapped between its words, a line the source continues. Layout's
// wraps are marked with "»" in grey where the line goes on, the source's own " _" stays its text,
// and a comment is cut after a word. The marks' font is larger than the line numbers', in which
// the room for them was once measured.
class WrappedRecordsTest : public PrintPagesTest, public ::testing::WithParamInterface<std::int16_t> {};

TEST_P(WrappedRecordsTest, EndWithinTheColumnMarksAndAll) {
    std::int16_t columns = GetParam();
    useColumns(columns, 720, false);
    displayAttributes().Elements[kElemKeyWords].slot[kPrint].Font.Size = 14;
    HlydPAGetFontMetrics();
    std::string words;
    for (int n = 1; n <= 30; ++n) words += " word" + std::to_string(n);
    std::string sum = "X = A1";
    for (int n = 2; n <= 40; ++n) sum += " + A" + std::to_string(n);
    // The wrapped records start at the foot of the first column and go on in the next; two columns
    // have their fonts fitted, and more lines.
    std::string filler;
    for (int n = 1; n <= (columns == 1 ? 36 : 52); ++n) filler += "Y = " + std::to_string(n) + "\n";
    print("Sub P()\n" + filler + "'" + words + "\nIf X Then\n    S = \"" + std::string(120, 'q') + "\" & T\n    " +
          sum + "\n    Call F(A1, A2, _\n        A3)\n    '" + words + "\nEnd If\nEnd Sub\n");
    float columnWidth = (10080 - 720 * static_cast<float>(columns - 1)) / static_cast<float>(columns);
    int marks = 0, sourceMarks = 0, lastColumn = 0;
    for (const PrintEvent& e : of(PrintEvent::Text)) {
        int column = static_cast<int>((e.x1 - kLeft) / (columnWidth + 720));
        float right = kLeft + static_cast<float>(column) * (columnWidth + 720) + columnWidth;
        EXPECT_LE(e.x1 + static_cast<float>(e.size) * 12 * static_cast<float>(e.text.size()), right)
                << e.text << " in column " << column + 1;
        if (e.text == kWrapMark) {
            ++marks, lastColumn = column;
            EXPECT_EQ(e.colour, 0x767676u);
        }
        sourceMarks += e.text == " _";
        // A piece of a comment ends behind a whole word.
        if (e.text.find("word") != std::string::npos && e.text.find("word30") == std::string::npos) {
            EXPECT_EQ(e.text.back(), ' ') << e.text;
        }
    }
    EXPECT_GT(marks, 5);
    EXPECT_EQ(sourceMarks, 1);
    EXPECT_EQ(lastColumn, columns - 1);
}

INSTANTIATE_TEST_SUITE_P(PrintPages, WrappedRecordsTest, ::testing::Values(1, 2));

// A line nested 12 deep in a column of a two- or three-column page: the levels share the room
// left beside 40 characters, and the fonts are fitted to a column too narrow for them.
struct NarrowColumns {
    std::int16_t columns;
    std::int32_t gutter, sideMargin;
};

class NarrowColumnsTest : public PrintPagesTest, public ::testing::WithParamInterface<NarrowColumns> {};

TEST_P(NarrowColumnsTest, ADeepLineKeepsFortyCharactersAndItsConnectors) {
    NarrowColumns c = GetParam();
    format().ConnectControls = 1;
    pageSettings().Margins.Left = pageSettings().Margins.Right = c.sideMargin;
    useColumns(c.columns, c.gutter, false);
    std::string text = "Sub P()\n";
    for (int level = 0; level < 12; ++level) text += "If a" + std::to_string(level) + " Then\n";
    text += std::string(200, 'q') + " = 1\n";
    for (int level = 0; level < 12; ++level) text += "End If\n";
    print(text + "End Sub\n");
    const SourceTables& t = theSourceTables();
    std::int32_t deepest = 0;
    for (std::int32_t r = 1; r <= t.RecordCount; ++r) deepest = std::max(deepest, t.Records[r].Indent);
    ASSERT_EQ(deepest, 12);
    // The long name's first piece fills its first line: at least 40 characters.
    PrintEvent deep;
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (deep.text.empty() && e.text[0] == 'q') deep = e;
    EXPECT_GE(deep.text.size(), 40u) << deep.text;
    EXPECT_LT(deep.size, 12);
    // Every stub runs from its level's vertical to the text of its opener or closer; the levels
    // stand apart, and every line stands left of the deepest text.
    std::vector<PrintEvent> lines = of(PrintEvent::Line);
    std::vector<PrintEvent> texts = of(PrintEvent::Text);
    std::set<float> columns;
    for (const PrintEvent& stub : lines) {
        if (stub.y1 != stub.y2) continue;
        EXPECT_LT(stub.x1, stub.x2);
        columns.insert(stub.x1);
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                                [&](const PrintEvent& e) {
                                    return std::abs(e.x1 - stub.x2) < 1 && e.y1 < stub.y1 &&
                                           stub.y1 < e.y1 + kLineHeight;
                                }))
                << "the stub at " << stub.x1 << ", " << stub.y1 << " meets no text";
        EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                                [&](const PrintEvent& l) {
                                    return l.x1 == l.x2 && l.x1 == stub.x1 && l.y1 <= stub.y1 && l.y2 >= stub.y1;
                                }))
                << "no vertical at " << stub.x1;
    }
    EXPECT_EQ(columns.size(), 12u);
    for (const PrintEvent& l : lines) EXPECT_LT(std::max(l.x1, l.x2), deep.x1 + 1);
}

// Three columns need narrow margins and gutters on this portrait page to hold 40 characters at
// the least fitted size: 3600 twips a column.
INSTANTIATE_TEST_SUITE_P(PrintPages, NarrowColumnsTest,
                         ::testing::Values(NarrowColumns{2, 720, 1440}, NarrowColumns{3, 360, 360}),
                         [](const auto& info) { return std::to_string(info.param.columns) + "Columns"; });

// A one-column print of shallow code keeps the indent unit and the chosen font, also after a
// print in columns whose fonts were fitted.
TEST_F(PrintPagesTest, OneColumnOfShallowCodeKeepsItsIndentationAndFont) {
    format().ConnectControls = 1;
    std::string text = "Sub P()\nIf a Then\nFor i = 1 To 2\nx = 1\nNext i\nEnd If\nEnd Sub\n";
    useColumns(3, 720, false);
    print(text);
    EXPECT_LT(this->text("x").size, 12);
    useColumns(1, 720, false);
    print(text);
    float left = kLeft + 2 * kWhiteSpace;  // room for the outermost connector
    EXPECT_EQ(this->text("Sub").x1, left);
    EXPECT_EQ(this->text("If").x1, left);  // a procedure's body stands at its declaration's level
    EXPECT_EQ(this->text("For").x1, left + 4 * kWhiteSpace);
    EXPECT_EQ(this->text("x").x1, left + 8 * kWhiteSpace);
    EXPECT_EQ(this->text("x").size, 12);
    EXPECT_EQ(this->text("x").y1, kFirstLine + 3 * kLineHeight);
}

TEST_F(PrintPagesTest, AForBlockOverAPageBreakKeepsItsConnectorOnBothPages) {
    format().ConnectControls = 1;
    std::string body;
    for (int l = 1; l <= 60; ++l) body += "    X" + std::to_string(l) + " = 1\n";
    print("Sub P()\nFor I = 1 To 2\n" + body + "Next I\nEnd Sub\n");
    std::vector<PrintEvent> lines = of(PrintEvent::Line);
    auto vertical = [](const PrintEvent& e) { return e.x1 == e.x2 && e.y1 != e.y2; };
    std::vector<PrintEvent> page1, page2;
    for (const PrintEvent& e : lines)
        if (vertical(e)) (e.page == 1 ? page1 : page2).push_back(e);
    ASSERT_FALSE(page1.empty());
    ASSERT_FALSE(page2.empty());
    EXPECT_EQ(page1.back().y2, kLastLineLimit);  // down to the bottom limit
    EXPECT_EQ(page2.front().y1, kFirstLine);     // and on from the top of the next page
    EXPECT_EQ(page1.back().x1, page2.front().x1);
}

TEST_F(PrintPagesTest, LinesAreNumberedByProcedureByModuleOrOnAndOn) {
    HlydSettings& s = hlydSettings();
    s.LineNumbers = true;
    s.LineNumberStart = 10;
    s.LineNumberIncrement = 10;
    s.LineNumberHow = 1;
    print("Dim A\n" + procedures(2, 1));
    // Declarations begin at the increment; each procedure at the start value.
    EXPECT_EQ(text("00010").y1, text("Dim").y1);
    EXPECT_EQ(text("00010").x1, kLeft);
    EXPECT_EQ(text("Dim").x1, kLeft + 7 * kCharWidth);
    std::vector<std::string> numbers;
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.x1 == kLeft && e.text.size() == 5 && e.text[0] == '0') numbers.push_back(e.text);
    EXPECT_EQ(numbers, (std::vector<std::string>{"00010", "00010", "00020", "00030", "00010", "00020", "00030"}));

    s.LineNumberHow = 2;
    print("Dim A\n" + procedures(2, 1));
    numbers.clear();
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.x1 == kLeft && e.text.size() == 5 && e.text[0] == '0') numbers.push_back(e.text);
    EXPECT_EQ(numbers.front(), "00010");
    EXPECT_EQ(numbers.back(), "00070");

    // On and on: a second file goes on from the first; by module it would start again.
    s.LineNumberHow = 3;
    resetFileTable();
    showSource("first.bas", "Dim A\n" + procedures(2, 1));
    showSource("second.bas", procedures(1, 1));
    events.clear();
    runPrint({});
    numbers.clear();
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.x1 == kLeft && e.text.size() == 5 && e.text[0] == '0') numbers.push_back(e.text);
    ASSERT_EQ(numbers.size(), 10u);
    EXPECT_EQ(numbers.back(), "00100");
}

// A blank line that would stand first on a page separates nothing there and is left out, before a
// procedure and inside one; counted by a line number it stays.
TEST_F(PrintPagesTest, APageDoesNotBeginWithABlankLine) {
    std::string fullPage = procedures(1, 44);  // Sub, 44 lines, End Sub: the 46 lines of a page
    print(fullPage + "\n' Second\nSub Q()\nY = 1\nEnd Sub\n");
    EXPECT_EQ(text("' Second").page, 2);
    EXPECT_EQ(text("' Second").y1, kFirstLine);
    print("Sub P()\n" + fullPage.substr(9, fullPage.size() - 9 - 8) + "X = 0\n\nZ = 1\nEnd Sub\n");
    EXPECT_EQ(text("Z").page, 2);
    EXPECT_EQ(text("Z").y1, kFirstLine);
    hlydSettings().LineNumbers = true;
    print(fullPage + "\n' Second\nSub Q()\nY = 1\nEnd Sub\n");
    EXPECT_EQ(text("' Second").y1, kFirstLine + kLineHeight);
}

// A blank line is as high as a line of the project listing's element, not of the deep font
// that its empty token has: deeps at 20 points (480 twips), the listing's element at 10 (240).
TEST_F(PrintPagesTest, ABlankLineIsAsHighAsTheProjectListingsElement) {
    displayAttributes().Elements[kElemComments].slot[kPrint].Font.Size = 20;
    displayAttributes().Elements[kElemProjectFile].slot[kPrint].Font.Size = 10;
    HlydPAGetFontMetrics();
    print("Sub P()\n' Note\n\nY = 1\nEnd Sub\n");
    EXPECT_EQ(text("Y").y1 - text("' Note").y1, 480 + 240);
}

// The connector lines of the outermost blocks stand a blank clear of the line numbers.
TEST_F(PrintPagesTest, ConnectorLinesKeepABlankFromTheLineNumbers) {
    hlydSettings().LineNumbers = true;
    format().ConnectControls = 1;
    print("Private Type T\nA As Long\nEnd Type\n");
    std::vector<PrintEvent> lines = of(PrintEvent::Line);
    ASSERT_FALSE(lines.empty());
    float numberEnd = text("00001").x1 + 5 * kCharWidth;
    for (const PrintEvent& l : lines) EXPECT_GE(std::min(l.x1, l.x2), numberEnd + kCharWidth) << l.x1 << " " << l.x2;
}

TEST_F(PrintPagesTest, AProcedureHasARuleAbove) {
    format().Separator = 1;
    format().SeparatorBold = 1;
    print(procedures(2, 1));
    std::vector<PrintEvent> rules = of(PrintEvent::Line);
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[0].y1, kFirstLine);
    EXPECT_EQ(rules[0].x1, kLeft);
    EXPECT_EQ(rules[0].x2, kLeft + 10080);
    EXPECT_EQ(rules[0].width, 5);
    EXPECT_EQ(text("Sub").y1, kFirstLine + 10 * 2);  // ten pixels of 2 twips under a bold rule
    EXPECT_EQ(rules[1].y1, text("X1_1").y1 + 2 * kLineHeight);
}

TEST_F(PrintPagesTest, HeadingsExpandTheirFieldsOnEveryPage) {
    HlydSettings& s = hlydSettings();
    s.HeadingLeft = "@filename;<Page>;@page";
    s.HeadingRight = "@procname";
    s.FootingCenter = "<Listed>|@vbname";
    s.PageNumberHow = 1;
    PrintRunRequest request;
    request.optionalLine = "Release 2  ";
    print("Attribute VB_Name = \"Mod1\"\n" + procedures(1, 60), request);
    EXPECT_EQ(text("Release 2").y1, 360);  // the optional line comes first, at the area's top
    EXPECT_EQ(text("Release 2").x1, kLeft);
    // A file name is given without a blank after it; a page number with one.
    EXPECT_TRUE(printed("module.basPage 1 "));
    EXPECT_TRUE(printed("module.basPage 2 "));
    EXPECT_EQ(text("module.basPage 1 ").y1, 360 + kLineHeight);
    EXPECT_TRUE(printed("Listed "));
    // The procedure of the page's first record: the declarations, then P1 on the second page.
    EXPECT_EQ(text("<Declarations>").page, 1);
    // Right-aligned on every page, from that page's own text.
    EXPECT_EQ(text("<Declarations>").x1, kLeft + 10080 - 14 * kCharWidth);
    bool headed = false;
    for (const PrintEvent& e : of(PrintEvent::Text))
        headed = headed || (e.page == 2 && e.text == "P1" && e.x1 == kLeft + 10080 - 2 * kCharWidth && e.y1 == 648);
    EXPECT_TRUE(headed);
    EXPECT_EQ(of(PrintEvent::PageStart).size(), 2u);
}

// A centre text is centred on each page for its own width. When the left or right text is in its
// way it moves only as far as it must, a blank clear of both; it takes the room of the right text's
// trailing blank before it loses a letter; and only a text too wide for the room between is cut.
TEST_F(PrintPagesTest, ACentreTextIsCentredMovedOrCutOnlyAsFarAsItMust) {
    HlydSettings& s = hlydSettings();
    s.HeadingLeft = "<" + std::string(27, 'L') + ">";  // 27 letters and a blank
    s.HeadingCenter = "@procname";
    s.HeadingRight = "<" + std::string(25, 'R') + ">";  // 25 letters and a blank: from 44 to the margin at 70
    format().ProcSkip = 'P';
    std::string moved(15, 'M'), tight(16, 'N'), wide(30, 'C');
    std::string text = "Attribute VB_Name = \"Mod1\"\nDim A\n";
    for (const std::string& name : {std::string("Short"), moved, tight, wide}) text += "Sub " + name + "()\nEnd Sub\n";
    print(text);
    struct Line {
        std::string centre;
        float centreAt, rightAt;  // in characters from the left margin
        std::string right;
    };
    std::string right(25, 'R');
    const Line wanted[] = {
            {"<Declarations>", 28, 44, right + " "},  // centred, and clear
            {"Short", 32.5f, 44, right + " "},        // centred for its own width, not where page 1's was
            {moved, 28, 44, right + " "},             // centred it would start at 27.5: moved to the left text's blank
            {tight, 28, 45, right},                   // fits only without the right text's trailing blank
            {std::string(12, 'C') + "...", 28, 44, right + " "},  // 15 characters of room
    };
    for (int page = 1; page <= 5; ++page) {
        std::vector<PrintEvent> line;
        for (const PrintEvent& e : of(PrintEvent::Text))
            if (e.page == page && e.y1 == 360) line.push_back(e);
        ASSERT_EQ(line.size(), 3u) << "page " << page;
        std::sort(line.begin(), line.end(), [](const PrintEvent& a, const PrintEvent& b) { return a.x1 < b.x1; });
        const Line& w = wanted[page - 1];
        EXPECT_EQ(line[0].x1, kLeft) << "page " << page;
        EXPECT_EQ(line[1].text, w.centre) << "page " << page;
        EXPECT_EQ(line[1].x1, kLeft + w.centreAt * kCharWidth) << "page " << page;
        EXPECT_EQ(line[2].text, w.right) << "page " << page;
        EXPECT_EQ(line[2].x1, kLeft + w.rightAt * kCharWidth) << "page " << page;
    }
}

TEST_F(PrintPagesTest, PrintingAFileWritesItsHistoryUnlessAskedNotTo) {
    hlydSettings().SaveHYInfo = true;
    clock.moment = std::time(nullptr) + 60;  // printed after the file was saved
    print(procedures(1, 1));
    const std::string& file = oFile().Item(1).FileName;
    EXPECT_FALSE(fbIsNewer(file));
    printState().NoHistory = true;
    showSource("other.bas", procedures(1, 1));
    runPrint({});
    EXPECT_TRUE(fbIsNewer(oFile().Item(2).FileName));
}

TEST_F(PrintPagesTest, ARangeThatStartsPastTheEndPrintsNothing) {
    PrintRunRequest request;
    request.pageRange = true;
    request.firstPage = 5;
    request.lastPage = 9;
    print(procedures(1, 60), request);
    EXPECT_EQ(recorders.printer()->pagesDelivered(), 0);
    EXPECT_TRUE(of(PrintEvent::EndDoc).empty());
}

TEST_F(PrintPagesTest, ARangeKeepsItsPagesWithTheirNumbers) {
    PrintRunRequest request;
    request.pageRange = true;
    request.firstPage = 2;
    request.lastPage = 2;
    hlydSettings().HeadingLeft = "@page";
    print(procedures(1, 150), request);
    EXPECT_EQ(recorders.printer()->pagesDelivered(), 1);
    EXPECT_TRUE(printed("2 "));
    EXPECT_FALSE(of(PrintEvent::KillDoc).empty());
}

TEST_F(PrintPagesTest, ContentsShowThePagesTheProceduresReallyStartOn) {
    HlydSettings& s = hlydSettings();
    s.ProcContentsPrint = true;
    s.TableOfContents = true;
    s.HeadingRight = "@page";
    format().ProcSkip = 'P';
    // The third procedure has a deep and a blank line before it, which go with it.
    std::string text = procedures(3, 2);
    text.insert(text.find("Sub P3"), "' The last one\n\n");
    print(text);
    // Each procedure on a page of its own: 1, 2, 3; then the procedure table on page i.
    std::vector<PrintEvent> pages = of(PrintEvent::PageStart);
    ASSERT_GE(pages.size(), 5u);
    EXPECT_EQ(pages[3].type, 3);
    EXPECT_EQ(pages[3].printed, 1);
    EXPECT_TRUE(printed("i "));
    EXPECT_TRUE(printed("3  "));
    std::vector<TocEntry>& toc = TOC();
    ASSERT_EQ(toc.size(), 5u);
    EXPECT_EQ(toc[1].Type, kTocFile);
    EXPECT_EQ(toc[4].Text, "Sub P3()");  // the declaration, not the deep before it
    EXPECT_EQ(toc[4].Page, "3  ");
    // In the procedure table the declaration stands on the line of its page number.
    float tableLine = 0;
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.page == 4 && e.text == "P3") tableLine = e.y1;
    EXPECT_GT(tableLine, 0);
    EXPECT_EQ(pages.back().type, 3);  // the table of contents is a document of its own
    EXPECT_EQ(of(PrintEvent::EndDoc).size(), 2u);
}

// The contents cite the page on which a declaration's first line is printed: also when a rule
// above it still fits at the foot of a page and the declaration does not, and when a declaration
// wrapped over a page's end goes on at the top of the next.
TEST_F(PrintPagesTest, ContentsCiteThePageOfTheDeclarationsFirstLine) {
    HlydSettings& s = hlydSettings();
    s.TableOfContents = true;
    s.PageNumberHow = 1;
    format().Orphan = 1;
    auto body = [](const std::string& name, int lines) {
        std::string text = "Sub " + name + "()\n";
        for (int l = 1; l <= lines; ++l) text += "Y = " + std::to_string(l) + "\n";
        return text + "End Sub\n";
    };
    // The page and the line on which the name of the procedure is printed, and the page it is cited on.
    struct Seen {
        std::int32_t page = 0;
        float y = 0;
        std::int32_t cited = -1;
    };
    auto seen = [this](const std::string& name) {
        Seen at;
        std::int32_t printedPage = 0;
        for (const PrintEvent& e : events) {
            if (e.kind == PrintEvent::PageStart) printedPage = e.printed;
            if (e.kind == PrintEvent::Text && e.text == name && e.bold && at.page == 0) at = {printedPage, e.y1};
        }
        for (const TocEntry& entry : TOC())
            if (entry.Text.find(" " + name + "(") != std::string::npos) at.cited = std::stoi(entry.Page);
        return at;
    };

    // 46 lines and three rules of 10 twips: the fourth rule would fit at 14070, but the
    // declaration under it would end below the bottom at 14220; rule, declaration and body go to
    // the next page together.
    format().Separator = 1;
    format().SeparatorBold = 0;
    print(body("P1", 13) + body("P2", 13) + body("P3", 14) + body("P4", 1));
    std::vector<PrintEvent> rules = of(PrintEvent::Line);
    ASSERT_EQ(rules.size(), 4u);
    EXPECT_EQ(rules[3].page, 2);
    Seen p4 = seen("P4");
    EXPECT_EQ(p4.page, 2);
    EXPECT_EQ(p4.cited, 2);

    // A declaration of two lines on the last line of a page: eleven comment lines tied to it fill
    // the page down to there, and no more lines are kept together.
    format().Separator = 0;
    std::string parameters, comments;
    for (int n = 1; n <= 6; ++n) parameters += (n > 1 ? ", ByVal A" : "ByVal A") + std::to_string(n) + " As Long";
    for (int n = 1; n <= 11; ++n) comments += "' note " + std::to_string(n) + "\n";
    print(body("P1", 32) + comments + "Sub P2(" + parameters + ")\nEnd Sub\n");
    Seen p2 = seen("P2");
    EXPECT_EQ(p2.page, 1);
    EXPECT_EQ(p2.y, kFirstLine + 45 * kLineHeight);
    EXPECT_EQ(text("A6").page, 2);
    EXPECT_EQ(p2.cited, 1);
}

// A word wider than the contents line less its indent (here a default string of a hundred
// characters on a line of seventy) is cut where the line ends, in the procedure table and in the
// table of contents alike; before, the table of contents cut it in its indent for ever.
TEST_F(PrintPagesTest, AWordWiderThanTheContentsLineIsCutAndEveryLineEnds) {
    HlydSettings& s = hlydSettings();
    s.TableOfContents = true;
    s.ProcContentsPrint = true;
    std::string word(100, 'W');
    PrintRunResult result = print("Sub P(Optional ByVal S As String = \"" + word + "\")\nEnd Sub\n");
    EXPECT_EQ(result.printStatus, kPrintOk);
    std::size_t inTable = 0, inToc = 0;
    int kind = 0;
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::PageStart) kind = e.type;
        std::size_t ws = static_cast<std::size_t>(std::count(e.text.begin(), e.text.end(), 'W'));
        if (e.kind != PrintEvent::Text || kind != kPageProcContents || ws == 0) continue;
        EXPECT_LE(e.x1 + e.size * 12 * static_cast<float>(e.text.size()), kLeft + 10080) << e.text;
        (e.doc == 1 ? inTable : inToc) += ws;
    }
    EXPECT_EQ(inTable, word.size());
    EXPECT_EQ(inToc, word.size());
}

// A declaration of many lines in the table of contents goes on over the page's end, clear of
// the footing; tall margins leave seven lines to a page.
TEST_F(PrintPagesTest, ATableOfContentsEntryOfManyLinesGoesOnOnTheNextPage) {
    hlydSettings().TableOfContents = true;
    pageSettings().Margins.Bottom = 11000;
    InitPrinter();
    std::string parameters;
    for (int n = 1; n <= 60; ++n) parameters += (n > 1 ? ", ByVal A" : "ByVal A") + std::to_string(n) + " As Long";
    print("Sub P(" + parameters + ")\nEnd Sub\n");
    float lastLine = kShortPageBottom - kLineHeight;
    std::int32_t tocPages = 0;
    bool whole = false;
    for (const PrintEvent& e : events) {
        if (e.doc != 2) continue;
        if (e.kind == PrintEvent::PageStart) ++tocPages;
        if (e.kind != PrintEvent::Text || e.text.empty()) continue;
        EXPECT_LE(e.y1, lastLine) << e.text;
        whole = whole || e.text.find("A60 As Long)") != std::string::npos;
    }
    EXPECT_GT(tocPages, 2);
    EXPECT_TRUE(whole);
}

// A declaration that fills its line puts its dots and page on the next; at the foot of a page
// that line goes to the next page too, clear of the footing. Tall margins leave eight lines, and
// the eighth declaration fills the last.
TEST_F(PrintPagesTest, AProcedureTablesLastLineKeepsClearOfTheFooting) {
    hlydSettings().ProcContentsPrint = true;
    pageSettings().Margins.Bottom = 11000;
    InitPrinter();
    std::string wide = "ByVal A As Long, ByVal B As Long, ByVal C As Long, ByVal DD As L";  // 68 with the rest
    print(procedures(7, 0) + "Sub P8(" + wide + ")\nEnd Sub\n");
    float lastLine = kShortPageBottom - kLineHeight;
    int kind = 0;
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::PageStart) kind = e.type;
        if (kind == kPageProcContents && e.kind == PrintEvent::Text && !e.text.empty()) {
            EXPECT_LE(e.y1, lastLine) << e.text;
        }
    }
}

// Text aligned in the source stays aligned on paper: a blank advances as far as a character of
// the fixed-width font, and a tab goes to the next stop of the tab width, counted from the code's
// start.
TEST_F(PrintPagesTest, AlignedSourceKeepsItsColumnsWithBlanksAndTabs) {
    format().TabWidth = 4;
    print("Const A    = 1\nConst BBBB = 2\nC\t= 3\nCCC\t= 4\nCCCC\t= 5\n");
    std::vector<float> equals;
    for (const PrintEvent& e : of(PrintEvent::Text))
        if (e.text == "=") equals.push_back(e.x1);
    ASSERT_EQ(equals.size(), 5u);
    EXPECT_EQ(equals[0], equals[1]);
    EXPECT_EQ(equals[2], equals[3]);
    EXPECT_EQ(equals[4] - equals[3], 4 * kCharWidth);  // "CCCC" fills a stop: the tab goes to the next
    // Inside a literal or a comment a tab goes to its stop as well, and the text after it with it:
    // the literal starts in column 4, its tab in column 6 takes two blanks.
    print("X = \"a\tb\" ' c\td\n");
    EXPECT_TRUE(printed("\"a  b\""));
    EXPECT_TRUE(printed("' c  d"));  // from column 14 to 16
    // Without computed indentation the source's own leading blanks and tabs keep their columns.
    format().Indent = 0;
    print("    A = 1\n\tB = 2\n  \tC = 3\n");
    for (const char* name : {"A", "B", "C"}) EXPECT_EQ(text(name).x1, kLeft + 4 * kCharWidth) << name;
}

// Functions whose declarations take three lines of the contents, one to a page from page 98 on,
// so that the page numbers grow from two digits to three.
class ContentsLayoutTest : public PrintPagesTest {
protected:
    void SetUp() override {
        PrintPagesTest::SetUp();
        HlydSettings& s = hlydSettings();
        s.ProcContentsPrint = true;
        s.TableOfContents = true;
        format().ProcSkip = 'P';
    }
    void printFunctions(int count, const std::string& file = "module.bas") {
        std::string text;
        for (int f = 1; f <= count; ++f)
            text += "Function F" + std::to_string(f) +
                    "(ByVal FirstValue As Long, ByVal SecondValue As String, ByVal ThirdValue As Double, "
                    "ByVal Fourth As Integer) As Boolean\nEnd Function\n";
        showSource(file, text);
        events.clear();
        PrintRunRequest request;
        request.startPage = 98;
        runPrint(request);
    }
    // The text events of the contents pages (procedure tables and the table of contents).
    std::vector<PrintEvent> contentsTexts() const {
        std::vector<PrintEvent> out;
        int kind = 0;
        for (const PrintEvent& e : events) {
            if (e.kind == PrintEvent::PageStart) kind = e.type;
            if (e.kind == PrintEvent::Text && kind == kPageProcContents && !e.text.empty()) out.push_back(e);
        }
        return out;
    }
    static float right(const PrintEvent& e) { return e.x1 + static_cast<float>(e.size * 12 * e.text.size()); }
    static std::size_t leadingBlanks(const std::string& text) { return text.find_first_not_of(' '); }
};

// Every page number ends at one right edge, behind at least two dots and a blank, and no text of
// its entry reaches into them; a wrapped declaration carries no continuation mark.
TEST_F(ContentsLayoutTest, PageNumbersStandInOneColumnBehindTheirDots) {
    printFunctions(5);
    std::vector<PrintEvent> texts = contentsTexts();
    std::vector<float> ends;
    for (std::size_t i = 1; i < texts.size(); ++i) {
        const PrintEvent& e = texts[i];
        EXPECT_EQ(e.text.find(" _"), std::string::npos) << e.text;
        EXPECT_NE(e.text, kWrapMark);
        bool pageNumber = e.text.size() > 2 && e.text.find_first_not_of("0123456789") == e.text.size() - 2 &&
                          e.text.ends_with("  ");
        if (!pageNumber) continue;
        ends.push_back(right(e));
        const PrintEvent& dots = texts[i - 1];
        ASSERT_EQ(dots.text.find_first_not_of('.'), std::string::npos) << dots.text;
        EXPECT_GE(dots.text.size(), 2u);
        EXPECT_EQ(dots.y1, e.y1);
        EXPECT_LE(right(dots) + kCharWidth, e.x1);
        const PrintEvent& words = texts[i - 2];
        if (words.y1 == e.y1) {
            EXPECT_LE(right(words), dots.x1) << words.text;
        }
    }
    ASSERT_EQ(ends.size(), 10u);  // five functions, in both tables
    for (float end : ends) EXPECT_FLOAT_EQ(end, ends.front());
}

// An entry that would run into the footing goes whole to the next page, in both tables; the
// lines of a wrapped declaration in the table of contents start at one indent. Tall margins
// leave seven lines to a page.
TEST_F(ContentsLayoutTest, AnEntryThatDoesNotFitGoesWholeToTheNextPage) {
    pageSettings().Margins.Bottom = 11000;
    InitPrinter();
    printFunctions(6);
    std::vector<PrintEvent> texts = contentsTexts();
    std::int32_t page = 0, doc = 0;
    std::size_t continued = 0;
    for (const PrintEvent& e : texts) {
        bool tocContinuation = e.doc == 2 && leadingBlanks(e.text) == 10;
        if (e.doc == 2 && leadingBlanks(e.text) > 0) {
            EXPECT_TRUE(leadingBlanks(e.text) == 6 || tocContinuation) << e.text;
        }
        continued += tocContinuation;
        if (e.page == page && e.doc == doc) continue;
        page = e.page;
        doc = e.doc;
        // The first text of a contents page starts an entry: it is no wrapped line.
        EXPECT_FALSE(tocContinuation) << e.text;
        if (e.doc == 1) {
            EXPECT_EQ(e.x1, kLeft) << e.text;
        }
    }
    EXPECT_GT(continued, 6u);
}

// The path of a deeply nested file keeps its start and its name, shortened between them to fit
// the line.
TEST_F(ContentsLayoutTest, ALongPathInTheTableOfContentsKeepsItsFileName) {
    std::string folder(60, 'D');
    printFunctions(1, folder + "/" + folder + "/module.bas");
    bool seen = false;
    for (const PrintEvent& e : contentsTexts()) {
        if (e.doc != 2 || !e.bold || e.text.find("module.bas") == std::string::npos) continue;
        seen = true;
        EXPECT_NE(e.text.find(".../module.bas"), std::string::npos) << e.text;
        EXPECT_LE(right(e), kLeft + 10080) << e.text;
    }
    EXPECT_TRUE(seen);
}

// Contents of more than a hundred pages: the numbers go on in Roman numerals, and the run ends
// well. Tall margins leave two lines to a page.
TEST_F(PrintPagesTest, ContentsOfOverAHundredPagesAreNumberedToTheirEnd) {
    HlydSettings& s = hlydSettings();
    s.ProcContentsPrint = true;
    s.TableOfContents = true;
    s.HeadingRight = "@page";
    s.PageNumberHow = 1;
    pageSettings().Margins.Bottom = 13300;
    InitPrinter();
    PrintRunResult result = print(procedures(210, 1));
    EXPECT_EQ(result.printStatus, kPrintOk);
    EXPECT_TRUE(result.written);
    std::vector<PrintEvent> pages = of(PrintEvent::PageStart);
    auto contentsPagesOf = [&pages](std::int32_t doc) {
        return std::count_if(pages.begin(), pages.end(),
                             [doc](const PrintEvent& e) { return e.doc == doc && e.type == kPageProcContents; });
    };
    EXPECT_GT(contentsPagesOf(1), 100);  // the procedure table
    EXPECT_GT(contentsPagesOf(2), 100);  // the table of contents
    for (const char* numeral : {"xl ", "xc ", "c ", "ci "}) EXPECT_TRUE(printed(numeral)) << numeral;
    EXPECT_FALSE(printed("lxxxx "));
}

TEST_F(PrintPagesTest, AProjectPrintsItsListingThenEachMemberAndItsContents) {
    hlydSettings().ProcContentsPrint = true;
    test::writeTempFile("One.bas", "Attribute VB_Name = \"One\"\n" + procedures(2, 1));
    std::string project = test::writeTempFile("Pair.vbp", "Type=Exe\r\nModule=One; One.bas\r\nName=\"Pair\"\r\n");
    openFileForRun(project);
    ASSERT_EQ(oFile().Count(), 2);
    events.clear();
    runPrint({});
    std::vector<PrintEvent> pages = of(PrintEvent::PageStart);
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0].type, kPageProject);
    EXPECT_EQ(text("Type=Exe").y1, kFirstLine);
    EXPECT_EQ(text("Module=One; One.bas").y1, kFirstLine + kLineHeight);
    EXPECT_EQ(text("Module=One; One.bas").x1, kLeft + kWhiteSpace);
    EXPECT_EQ(pages[1].type, kPageCode);
    EXPECT_EQ(pages[2].type, kPageProcContents);
    EXPECT_EQ(pages[2].printed, 1);
    // The procedure table: each declaration, dots on one grid, the page at the right edge.
    PrintEvent page = events.back();
    for (auto e = events.rbegin(); e != events.rend(); ++e)
        if (e->kind == PrintEvent::Text && e->text == "1  ") {
            page = *e;
            break;
        }
    EXPECT_EQ(page.x1, kLeft + 10080 - 3 * kCharWidth);
    EXPECT_EQ(of(PrintEvent::EndDoc).size(), 2u);

    // The project's contents alone: a page of its own kind with each member's name.
    events.clear();
    HlydPRProcessProjectProcContentsRequest();
    EXPECT_EQ(of(PrintEvent::PageStart).front().type, kPageProjectContents);
    bool named = false;
    for (const PrintEvent& e : of(PrintEvent::Text)) named = named || e.text.find("One.bas") != std::string::npos;
    EXPECT_TRUE(named);
    EXPECT_EQ(of(PrintEvent::EndDoc).size(), 1u);
}

TEST_F(PrintPagesTest, WithoutAPrinterNothingPrints) {
    NoPrinterSystem none;
    setPrinterSystem(&none);
    InitPrinter();
    PrintRunResult result = print(procedures(1, 2));
    EXPECT_FALSE(result.written);
    EXPECT_TRUE(events.empty());
}

TEST_F(PrintPagesTest, ColumnsTooNarrowForALineRefuseThePrintWithAMessage) {
    useColumns(12, 720, true);  // (10080 - 11 x 720) / 12 = 180 twips a column
    EXPECT_EQ(printState().AreaError, kAreaTooNarrow);
    ui.shown.clear();
    PrintRunResult result = print(procedures(1, 2));
    EXPECT_FALSE(result.written);
    EXPECT_TRUE(events.empty());
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find("leave no room to print on the page of Recorder"), std::string::npos);
}

// The start-page prompt takes what a page number can be; an answer past that keeps the number
// offered, as an answer that is no number does, and the print goes on.
TEST_F(PrintPagesTest, AStartPageAnswerTooLargeForAPageNumberKeepsTheOneOffered) {
    HlydSettings& s = hlydSettings();
    s.PageNumberAsk = true;
    s.HeadingLeft = "@page";
    ui.inputAnswers = {std::string("7"), std::string("99999999999")};
    EXPECT_EQ(print(procedures(1, 1)).printStatus, kPrintOk);
    EXPECT_TRUE(printed("7 "));
    PrintRunResult result = print(procedures(1, 1));
    EXPECT_EQ(result.printStatus, kPrintOk);
    EXPECT_TRUE(result.written);
    EXPECT_TRUE(printed("1 "));
}

// Margins that leave no room are ignored with a word, and the printer's own area takes their
// place: the print goes on in it. Columns too narrow even there still refuse it.
TEST_F(PrintPagesTest, MarginsThatAreIgnoredLeaveTheDefaultAreaToPrintIn) {
    pageSettings().Margins.Left = 6000;
    pageSettings().Margins.Right = 6000;  // 240 twips of width
    ui.shown.clear();
    HlydPAProcessSetupRequest(false);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find("They are being ignored."), std::string::npos);
    EXPECT_EQ(printState().AreaError, kAreaOk);
    PrintRunResult result = print(procedures(1, 60));
    EXPECT_TRUE(result.written) << result.error;
    EXPECT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(text("Sub").x1, 0);  // the left edge of the printable area
    EXPECT_EQ(text("X1_1").page, 1);

    pageSettings().Columns = ColumnSpec{40, true, 720, 0};
    HlydPAProcessSetupRequest(false);
    EXPECT_EQ(printState().AreaError, kAreaTooNarrow);
    EXPECT_FALSE(print(procedures(1, 2)).written);
}

// A recording printer that prints on both sides.
class DuplexRecorder : public RecordingPrinter {
public:
    using RecordingPrinter::RecordingPrinter;
    std::int32_t jobProperty(JobProperty which) const override {
        return which == JobProperty::Duplex ? 2 : RecordingPrinter::jobProperty(which);
    }
    int setJobProperty(JobProperty which, std::int32_t value) override {
        return which == JobProperty::Duplex ? 0 : RecordingPrinter::setJobProperty(which, value);
    }
};

class DuplexSystem : public RecordingPrinterSystem {
public:
    using RecordingPrinterSystem::RecordingPrinterSystem;
    std::unique_ptr<Printer> open(const std::string& wanted) override {
        if (wanted != name()) return nullptr;
        return std::make_unique<DuplexRecorder>(name(), sink());
    }
};

// A right heading ends at the margin on every page, however many digits its page number has.
TEST_F(PrintPagesTest, ARightHeadingEndsAtTheMarginOnEveryPage) {
    hlydSettings().PageNumberHow = 2;
    hlydSettings().HeadingRight = "<Page >;@page";
    PrintRunRequest request;
    request.startPage = 9;
    print(procedures(1, 60), request);
    PrintEvent nine = text("Page  9 "), ten = text("Page  10 ");
    ASSERT_EQ(nine.page, 1);
    ASSERT_EQ(ten.page, 2);
    Printer* printer = currentPrinter();
    ASSERT_NE(printer, nullptr);
    float digit = printer->textWidth("0");
    EXPECT_FLOAT_EQ(nine.x1 - ten.x1, digit);
}

TEST_F(PrintPagesTest, ContinuousNumberingGoesOnFromFileToFileAndDuplexStartsOnTheRight) {
    hlydSettings().PageNumberHow = 2;
    // Six pages of the first module (252 lines at 44 a page), then the second module.
    showSource("first.bas", procedures(1, 250));
    showSource("second.bas", procedures(1, 2));
    events.clear();
    runPrint({});
    std::vector<PrintEvent> pages = of(PrintEvent::PageStart);
    ASSERT_EQ(pages.size(), 7u);
    EXPECT_EQ(pages[5].printed, 6);
    EXPECT_EQ(pages[6].printed, 7);  // no number is left out between two modules

    DuplexSystem duplex("Recorder", [this](const PrintEvent& e) { events.push_back(e); });
    setPrinterSystem(&duplex);
    InitPrinter();
    events.clear();
    runPrint({});
    pages = of(PrintEvent::PageStart);
    ASSERT_EQ(pages.size(), 8u);     // the one page of the second module gets an empty back
    EXPECT_EQ(pages[6].printed, 7);  // odd, on a right-hand page

    // A document of five pages gets an empty sixth, so that the next starts on a sheet of its own.
    resetFileTable();
    showSource("five.bas", procedures(1, 200));
    events.clear();
    runPrint({});
    EXPECT_EQ(of(PrintEvent::PageStart).size(), 6u);
    auto* recorder = dynamic_cast<RecordingPrinter*>(currentPrinter());
    ASSERT_NE(recorder, nullptr);
    EXPECT_EQ(recorder->pagesDelivered(), 8 + 6);
    setPrinterSystem(&recorders);
}

}  // namespace
}  // namespace hlyd
