// The screen emitter on a surface of fixed metrics: what it draws from a requested record, what
// it says when there is nothing to draw, and how it sets the scroll bar and the labels.
#include "display/screen_emitter.h"

#include <map>

#include "fake_surface.h"
#include "files/file_loading.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "settings/settings_store.h"

namespace hlyd {
namespace {

// Keeps what the record label said whenever text was printed.
class LabelWatchingSurface : public test::FakeSurface {
public:
    void print(const std::string& text) override {
        labels.push_back(mainWindow().lblRecord);
        FakeSurface::print(text);
    }
    std::vector<std::string> labels;
};

// "v1 = 1" ... "vN = N": each record says which it is.
std::string numberedLines(int count) {
    std::string text;
    for (int n = 1; n <= count; ++n) text += "v" + std::to_string(n) + " = " + std::to_string(n) + "\n";
    return text;
}

// Lines are 200 high; the view is 12000 x 8000, so 41 records fit (tops 0 to 8000).
class ScreenEmitterTest : public test::SurfaceTestOf<LabelWatchingSurface> {
protected:
    void SetUp() override {
        SurfaceTestOf::SetUp();
        format().ConnectControls = 0;
        emitterState().ViewHeight = 8000;
    }
    void load(const std::string& name, const std::string& text) { showSource(name, text); }
    std::int32_t show(std::int32_t first) {
        surface.calls.clear();
        surface.labels.clear();
        HlydDSEmitRequestedData(first);
        return first;
    }
    FormatRecord& format() { return displayAttributes().Format[kDisplay]; }
    ScrollBarModel& bar() { return mainWindow().vsbDisplay; }
    std::vector<test::FakeSurface::Call> prints() const { return surface.callsOf("print"); }
};

const char* const kFormDescriptionOnly =
        "VERSION 5.00\n"
        "Begin VB.Form Form1\n"
        "   Caption = \"Form1\"\n"
        "End\n";

TEST_F(ScreenEmitterTest, SaysWhenThereIsNothingToShow) {
    load("Form1.frm", kFormDescriptionOnly);
    hlydSettings().ViewFormDef[kDisplay] = false;
    EXPECT_EQ(show(1), 1);
    auto printed = prints();
    ASSERT_EQ(printed.size(), 1u);
    EXPECT_EQ(printed[0].text, "No Code-statements to display.");
    EXPECT_EQ(std::make_pair(printed[0].x1, printed[0].y1), std::make_pair(0.f, 0.f));
    EXPECT_EQ(printed[0].colour, displayAttributes().Elements[kElemKeyWords].slot[kDisplay].ForeColor);
    EXPECT_EQ(emitterState().FirstRecord, -1);
    EXPECT_EQ(emitterState().LastRecord, -1);
    EXPECT_EQ(mainWindow().lblRecord, "Line: -1");
    EXPECT_FALSE(emitterState().Active);

    load("Module1.bas", "x = 1\n");
    hlydSettings().ViewFormDef[kDisplay] = true;
    hlydSettings().ViewCode[kDisplay] = false;
    show(1);
    ASSERT_EQ(prints().size(), 1u);
    EXPECT_EQ(prints()[0].text, "No Form-definition statements to display.");

    // Both shown and nothing there: no code, whatever the form description flag says.
    load("Empty.bas", "");
    hlydSettings().ViewCode[kDisplay] = true;
    show(1);
    ASSERT_EQ(prints().size(), 1u);
    EXPECT_EQ(prints()[0].text, "No Code-statements to display.");
}

// End in a view of any height shows the file's last record inside the view: after a resize (the
// size of a page not known yet) and again once it is known.
TEST_F(ScreenEmitterTest, EndShowsTheLastLinesInAViewOfAnyHeight) {
    load("Module1.bas", numberedLines(100));
    for (float height : {100.f, 600.f, 1000.f, 2000.f, 3000.f, 5000.f}) {
        SCOPED_TRACE(height);
        surface.resize(12000, height);
        emitterState().ViewHeight = static_cast<std::int32_t>(height);
        show(1);  // a resize redraws in place
        for (int pass = 0; pass < 2; ++pass) {
            show(-1);
            ASSERT_FALSE(prints().empty());
            EXPECT_EQ(prints().back().text, "100");
            EXPECT_LT(prints().back().y1, height);
            EXPECT_GE(emitterState().FirstRecord, 1);
        }
        EXPECT_TRUE(emitterState().LinesKnown);
    }
}

TEST_F(ScreenEmitterTest, HiddenFormDescriptionIsPassedOver) {
    load("Form1.frm", std::string(kFormDescriptionOnly) +
                              "Attribute VB_Name = \"Form1\"\n"  // record 5, the first code record
                              "Option Explicit\n"
                              "Private Sub Foo()\n"
                              "End Sub\n");
    hlydSettings().ViewFormDef[kDisplay] = false;
    EXPECT_EQ(show(1), 5);
    ASSERT_FALSE(surface.labels.empty());
    EXPECT_EQ(surface.labels[0], "Form Def...");  // while the description was skipped
    EXPECT_EQ(prints()[0].text, "Attribute");
    EXPECT_EQ(prints()[0].y1, 0);
    EXPECT_EQ(bar().Min, 5);
    EXPECT_EQ(emitterState().FirstRecord, 5);
    EXPECT_EQ(emitterState().FirstShown, 5);
    EXPECT_EQ(mainWindow().lblRecord, "Line: 5");
    // The procedure list follows the first record: the declarations section.
    EXPECT_EQ(mainWindow().cboProc.List(mainWindow().cboProc.ListIndex), "<Declarations>");
}

TEST_F(ScreenEmitterTest, SeparatorLineAboveEachProcedure) {
    load("Module1.bas", "Sub Foo()\nx = 1\nEnd Sub\n");
    format().Separator = 1;
    format().SeparatorBold = 1;
    show(1);
    std::vector<std::string> pen;
    for (const auto& c : surface.calls)
        if (c.op == "drawwidth" || c.op == "line") pen.push_back(c.op + " " + c.text);
    EXPECT_EQ(pen, (std::vector<std::string>{"drawwidth 5", "line ", "drawwidth 1"}));
    auto line = surface.callsOf("line")[0];
    EXPECT_EQ(std::make_tuple(line.x1, line.y1, line.x2, line.y2), std::make_tuple(0.f, 0.f, 11999.f, 0.f));
    // Bold: five pixels of 15 twips push the procedure's line down by 75.
    EXPECT_EQ(prints()[0].text, "Sub");
    EXPECT_EQ(prints()[0].y1, 75);
    EXPECT_EQ(prints()[4].text, "x");
    EXPECT_EQ(prints()[4].y1, 275);

    format().SeparatorBold = 0;
    show(1);
    EXPECT_EQ(prints()[0].y1, 15);
}

TEST_F(ScreenEmitterTest, EndRequestBeforeTheViewIsKnownDrawsTheLastScreen) {
    load("Module1.bas", numberedLines(100));  // records 1 to 100 and the end record 101
    ASSERT_EQ(theSourceTables().RecordCount, 101);
    show(1);
    ASSERT_TRUE(emitterState().LinesKnown);
    EXPECT_EQ(emitterState().LinesPerView, 30);  // 8000 / 200 - 10
    const std::int32_t page = bar().LargeChange;

    // A taller window: the page count is no longer known, so the end is found by stepping back
    // a page from the end record and forward by 14.
    surface.resize(12000, 10000);
    const std::int32_t expected = 101 - page - 1 + 14;
    EXPECT_EQ(show(-1), expected);
    EXPECT_EQ(emitterState().FirstRecord, expected);
    EXPECT_EQ(prints().front().text, "v" + std::to_string(expected));
    EXPECT_EQ(prints().front().y1, 0);
    EXPECT_EQ(prints().back().text, "100");
    EXPECT_EQ(prints().back().y1, (100 - expected) * 200);
    EXPECT_EQ(mainWindow().lblRecord, "Line: " + std::to_string(expected));
    // The end was reached: the view's size is known again and the range is exact.
    EXPECT_TRUE(emitterState().LinesKnown);
    EXPECT_EQ(emitterState().LinesPerView, 40);  // 10000 / 200 - 10
    EXPECT_EQ(bar().LargeChange, 100 - expected - 1);
    EXPECT_EQ(bar().Max, 101 - bar().LargeChange - 1);
}

TEST_F(ScreenEmitterTest, ScrollMaximumIsAnEstimateWhileTheFileIsRead) {
    // Sixty lines of ten bytes. The file is read by hand a part at a time, as a long file would be.
    std::string text;
    for (int n = 1; n <= 60; ++n) text += "a" + std::string(n < 10 ? "0" : "") + std::to_string(n) + " = 100\n";
    std::string path = test::writeTempFile("Long.bas", text);
    oFile().Add({path, kFileSource, false, 0, 0});
    FileTableModule& f = fileTable();
    f.wCurrentFile = 1;
    ASSERT_EQ(f.source.open(path), 0);
    BabInitFile(theSourceTables(), "6");
    emitterState().LinesPerView = 30;  // as an earlier view of this size left it

    std::int32_t upTo = 10;
    sbParseRecord(upTo);
    ASSERT_EQ(f.source.offset(), 100u);
    show(1);
    // 10 records x 600 bytes / 100 read, plus the page of 10 - 1 - 1.
    EXPECT_EQ(bar().LargeChange, 8);
    EXPECT_EQ(bar().Max, 68);

    upTo = 20;
    sbParseRecord(upTo);
    show(1);
    EXPECT_EQ(bar().Max, 20 * 600 / 200 + 18);

    upTo = -1;
    sbParseRecord(upTo);
    ASSERT_FALSE(f.source.isOpen());
    show(1);
    EXPECT_TRUE(emitterState().LinesKnown);
    EXPECT_EQ(bar().Max, 61 - bar().LargeChange - 1);
}

TEST_F(ScreenEmitterTest, ScrollRangeStopsAtTheLimitOfAScrollBar) {
    std::string text;
    for (int n = 0; n < 40000; ++n) text += "x = 1\n";
    load("Huge.bas", text);
    show(1);
    EXPECT_EQ(bar().Max, 32767);
}

// A tab goes on to the next stop of TabWidth columns counted from where the code starts, past
// the indentation the view computes, as on paper; the screen's tab width is 4 unless set.
TEST_F(ScreenEmitterTest, TabsGoToTheNextStopFromTheCodesStart) {
    EXPECT_EQ(format().TabWidth, 4);
    format().Separator = 0;
    load("Module1.bas", "Sub Foo()\n\tC\t= 3\n\tCCCC\t= 5\n\tX = 1:\tY = 2\nEnd Sub\n");
    show(1);
    std::map<std::string, std::vector<float>> x;
    for (const auto& p : prints()) x[p.text].push_back(p.x1);
    ASSERT_EQ(x["="].size(), 4u);
    const float column = 100;  // a character of the fixed surface
    EXPECT_EQ(x["="][0] - x["C"][0], 4 * column);
    EXPECT_EQ(x["="][1] - x["CCCC"][0], 8 * column);  // four characters fill a stop: on to the next
    EXPECT_EQ(x["Y"][0] - x["X"][0], 8 * column);     // "X = 1:" ends in column 6
    format().TabWidth = 8;
    show(1);
    x.clear();
    for (const auto& p : prints()) x[p.text].push_back(p.x1);
    EXPECT_EQ(x["="][0] - x["C"][0], 8 * column);
}

}  // namespace
}  // namespace hlyd
