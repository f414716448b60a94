// Find, select and copy on the view as the emitter lays it out on a surface of fixed metrics: the
// places map to the lines as they stand in the file, whatever indentation and wraps the view drew.
#include "display/screen_emitter.h"
#include "display/view_find.h"
#include "display/view_map.h"
#include "display/view_selection.h"
#include "display/viewing.h"
#include "fake_surface.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"

namespace hlyd {
namespace {

// A block indented with a tab and odd blanks, which the view indents its own way, and a line far
// wider than the view (120 characters), which it wraps.
const std::string kLong =
        "    total = total + alpha * beta + gamma * delta + epsilon * zeta + eta * theta + iota * kappa "
        "+ lambda * mu + nu * xi + omicron * pi ' long";
const std::vector<std::string> kLines = {
        "Option Explicit", "Sub Compute()", "\tIf total > 0 Then", "   total = 0   ' reset", "\tEnd If", kLong,
        "End Sub",
};

class ViewFindTest : public test::ViewTest {
protected:
    void openLines(const std::vector<std::string>& lines) {
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        showSource("Find.bas", text);
    }
    std::vector<const DrawnStretch*> stretchesOf(std::int32_t record) const {
        std::vector<const DrawnStretch*> found;
        for (const DrawnStretch& s : viewMap().stretches)
            if (s.record == record) found.push_back(&s);
        return found;
    }
};

TEST_F(ViewFindTest, ACopyGivesTheLinesAsTheyStandInTheFile) {
    openLines(kLines);
    // The long line is drawn on more than one screen line, with a mark the file does not hold.
    std::vector<const DrawnStretch*> longLine = stretchesOf(6);
    ASSERT_FALSE(longLine.empty());
    EXPECT_GT(longLine.back()->top, longLine.front()->top);

    selectFrom({3, 1}, false);  // from "If" on the tab-indented line
    selectTo({6, 20});
    EXPECT_EQ(selectedText("\r\n"),
              "If total > 0 Then\r\n   total = 0   ' reset\r\n\tEnd If\r\n" + kLong.substr(0, 20));
    selectTo({5, 0});  // to the start of a line: the line end before it is taken, nothing of the line
    EXPECT_EQ(selectedText("\n"), "If total > 0 Then\n   total = 0   ' reset\n");
    selectFrom({6, 0}, false);
    selectTo({7, 0});
    EXPECT_EQ(selectedText("\n"), kLong + "\n");

    selectAll();
    std::string all;
    for (const std::string& line : kLines) all += (all.empty() ? "" : "\n") + line;
    EXPECT_EQ(selectedText("\n"), all);

    // Shift with the arrows moves the caret a byte, or a line keeping the column.
    selectFrom({4, 3}, false);
    extendSelection(CaretMove::Right);
    extendSelection(CaretMove::Right);
    EXPECT_EQ(selectedText("\n"), "to");
    extendSelection(CaretMove::Down);
    EXPECT_EQ(selectedText("\n"), "total = 0   ' reset\n\tEnd ");
    selectFrom({4, 0}, false);
    extendSelection(CaretMove::Left);
    EXPECT_EQ(selectedText("\n"), "\n");
}

// A double click takes the word it is in or touches; elsewhere the byte after it.
TEST_F(ViewFindTest, ADoubleClickSelectsTheWordAtThePlace) {
    openLines(kLines);
    const std::vector<std::pair<TextPlace, std::string>> cases = {
            {{4, 5}, "total"},                   // inside
            {{4, 3}, "total"},                   // at its first byte
            {{4, 8}, "total"},                   // just after its last byte
            {{4, 9}, "="},                       // on a byte of no word: that byte
            {{4, 10}, " "},    {{2, 3}, "Sub"},  // "Sub Compute()": on the blank after a word
            {{7, 99}, "Sub"},                    // past the line's end: the last word
    };
    for (const auto& [place, word] : cases) {
        selectWordAt(place);
        EXPECT_EQ(selectedText("\n"), word) << place.record << ':' << place.column;
    }
}

// A drag held below the view scrolls it a line at a time until the file's end.
TEST_F(ViewFindTest, ADragHeldBelowTheViewScrollsOn) {
    std::vector<std::string> lines;
    for (int n = 1; n <= 300; ++n) lines.push_back("    v" + std::to_string(n) + " = " + std::to_string(n));
    openLines(lines);
    ASSERT_EQ(emitterState().FirstRecord, 1);
    EXPECT_TRUE(scrollForDrag(true));
    EXPECT_EQ(emitterState().FirstRecord, 2);
    EXPECT_TRUE(scrollForDrag(false));
    EXPECT_EQ(emitterState().FirstRecord, 1);
    EXPECT_FALSE(scrollForDrag(false));
    int steps = 0;
    while (scrollForDrag(true) && steps < 1000) ++steps;
    EXPECT_LT(steps, 1000);
    EXPECT_GT(emitterState().LastRecord, 295);
}

TEST_F(ViewFindTest, ThePointerMapsToTheLineAndASelectionToBoxes) {
    openLines(kLines);
    std::vector<const DrawnStretch*> line4 = stretchesOf(4);
    ASSERT_FALSE(line4.empty());
    const DrawnStretch& first = *line4.front();
    EXPECT_EQ(first.column, 3);  // "total", after the line's own three blanks
    float middle = (first.top + first.bottom) / 2;
    auto at = [&](float x) { return placeAt(viewMap(), x, middle).value_or(TextPlace{}); };
    EXPECT_EQ(at(stretchEdges(first)[2] + 10).column, 5);  // nearer the left edge of the third byte
    EXPECT_EQ(at(stretchEdges(first)[2] + 60).column, 6);
    EXPECT_EQ(at(0).column, 0);       // left of the text: the line's start, blanks and all
    EXPECT_EQ(at(11999).column, 22);  // right of it: the line's end
    EXPECT_EQ(at(11999).record, 4);
    EXPECT_EQ(placeAt(viewMap(), 10, 7999)->record, 7);  // below the last line: the last line

    std::vector<TwipBox> boxes = boxesOf(viewMap(), {4, 3}, {4, 8});
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].left, stretchEdges(first)[0]);
    EXPECT_EQ(boxes[0].right, stretchEdges(first)[5]);
    // A selection over the wrapped line lights each of its screen lines, one box a line.
    std::vector<const DrawnStretch*> wrapped = stretchesOf(6);
    std::vector<TwipBox> lit = boxesOf(viewMap(), {6, 0}, {7, 0});
    EXPECT_GE(lit.size(), 2u);
    EXPECT_LT(lit.size(), wrapped.size());
    // Left of a wrapped line's continuation is where the continuation starts.
    const DrawnStretch& last = *wrapped.back();
    EXPECT_EQ(placeAt(viewMap(), 0, (last.top + last.bottom) / 2)->column, [&] {
        std::int32_t start = last.column;
        for (const DrawnStretch* s : wrapped)
            if (s->top == last.top) start = std::min(start, s->column);
        return start;
    }());
}

// A control character shows as two (caret notation) but is one byte of the line: places and the
// copy count bytes.
TEST_F(ViewFindTest, AControlCharacterIsOneByteOfTheLine) {
    openLines({"Sub A()",
               "    s = \"a\x01"
               "b\" & t",
               "End Sub"});
    const DrawnStretch* literal = nullptr;
    for (const DrawnStretch* s : stretchesOf(2))
        if (s->column == 8) literal = s;
    ASSERT_NE(literal, nullptr);
    EXPECT_EQ(literal->length, 5);
    const std::vector<float>& edges = stretchEdges(*literal);
    ASSERT_EQ(edges.size(), 6u);
    EXPECT_EQ(edges[3] - edges[2], 2 * (edges[2] - edges[1]));  // "^A" is two characters wide
    float middle = (literal->top + literal->bottom) / 2;
    EXPECT_EQ(placeAt(viewMap(), edges[4] + 1, middle)->column, 12);
    EXPECT_EQ(placeAt(viewMap(), literal->right + 120, middle)->column, 14);  // past the blank, before "&"
    selectFrom({2, 8}, false);
    selectTo(*placeAt(viewMap(), literal->right, middle));
    EXPECT_EQ(selectedText("\n"),
              "\"a\x01"
              "b\"");
}

// A tab inside a literal shows as the blanks to its stop (the literal starts in column 4, its tab
// in column 6 goes to 8) and is one byte of the line as well.
TEST_F(ViewFindTest, ATabInALiteralIsOneByteAsWideAsItsBlanks) {
    displayAttributes().Format[kDisplay].TabWidth = 4;
    openLines({"Sub A()", "s = \"a\tb\" & t", "End Sub"});
    const DrawnStretch* literal = nullptr;
    for (const DrawnStretch* s : stretchesOf(2))
        if (s->column == 4) literal = s;
    ASSERT_NE(literal, nullptr);
    EXPECT_EQ(literal->length, 5);
    const std::vector<float>& edges = stretchEdges(*literal);
    ASSERT_EQ(edges.size(), 6u);
    EXPECT_EQ(edges[3] - edges[2], 2 * (edges[2] - edges[1]));
    float middle = (literal->top + literal->bottom) / 2;
    EXPECT_EQ(placeAt(viewMap(), edges[3] + 1, middle)->column, 7);  // on "b", after the blanks
    selectFrom({2, 4}, false);
    selectTo(*placeAt(viewMap(), literal->right, middle));
    EXPECT_EQ(selectedText("\n"), "\"a\tb\"");
}

TEST_F(ViewFindTest, AHitBelowTheViewIsScrolledIntoItWithTheProcedureList) {
    std::vector<std::string> lines;
    for (int p = 1; p <= 3; ++p) {
        lines.push_back("Sub P" + std::to_string(p) + "()");
        for (int n = 1; n <= 40; ++n)
            lines.push_back("    v" + std::to_string(p * 100 + n) + " = " + std::to_string(n));
        lines.push_back("End Sub");
    }
    openLines(lines);
    ASSERT_EQ(emitterState().FirstRecord, 1);
    ASSERT_TRUE(findInView("v320", {false, true}, true));
    EXPECT_GT(emitterState().FirstRecord, 60);
    EXPECT_TRUE(placeShown(viewMap(), {currentHit()->record, currentHit()->column}, 8000));
    EXPECT_EQ(mainWindow().cboProc.List(mainWindow().cboProc.ListIndex), "P3");
    ASSERT_TRUE(findInView("v101", {false, true}, false));  // above the view: brought back
    EXPECT_TRUE(placeShown(viewMap(), {currentHit()->record, currentHit()->column}, 8000));
    EXPECT_EQ(mainWindow().cboProc.List(mainWindow().cboProc.ListIndex), "P1");
}

// A project's listing is not searched, and the reader is told where to search instead.
TEST_F(ViewFindTest, FindOnAProjectListingSaysWhereToSearch) {
    showSource("One.bas", "Sub A()\r\n    Beep\r\nEnd Sub\r\n");
    oFile().Add({"App.vbp", kFileProject, false, 0, 0});
    fileTable().wCurrentFile = oFile().Count();
    mainWindow().lblStatus = "";
    EXPECT_FALSE(findInView("Beep", {}, true));
    EXPECT_NE(mainWindow().lblStatus.find("Find in All Open Files"), std::string::npos);
}

TEST_F(ViewFindTest, FindInAllOpenFilesListsEachAndShowsTheOneChosen) {
    showSource("One.bas", "Sub A()\r\n    Beep\r\nEnd Sub\r\n");
    // A file never shown is read once for the search; afterwards it is searched in memory.
    oFile().Add({test::writeTempFile("Two.bas", "' Beep twice\r\nSub B()\r\n  Beep: Beep\r\nEnd Sub\r\n"), kFileSource,
                 false, 0, 0});
    std::vector<FileHit> hits = findInOpenFiles("beep", {false, true});
    ASSERT_EQ(hits.size(), 4u);
    EXPECT_TRUE(hits[0].fileName.ends_with("One.bas"));
    EXPECT_EQ(hits[0].hit.record, 2);
    EXPECT_EQ(hits[0].line, "    Beep");
    EXPECT_TRUE(hits[3].fileName.ends_with("Two.bas"));
    EXPECT_EQ(hits[3].hit.column, 8);
    showFileHit(hits[3]);
    EXPECT_EQ(fileTable().wCurrentFile, 2);
    EXPECT_EQ(selectedText("\n"), "Beep");
    EXPECT_EQ(selectionStart().column, 8);
}

}  // namespace
}  // namespace hlyd
