// The viewing logic through the window's models: keys and the scroll bar, the procedure list,
// next and prior procedure and file. The view is drawn on a surface of fixed metrics.
#include "base/hlyd_error.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "display/wheel_scroll.h"
#include "fake_surface.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "settings/settings_store.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

// Lines 200 high in a view 8000 high: 30 records a view as the emitter counts them (40 - 10).
class ViewingTest : public test::ViewTest {
protected:
    void open(const std::string& name, const std::string& text) { showSource(name, text); }
    void openExample(const std::string& name) {
        oFile().Add({std::string(HLYD_SOURCE_DIR) + "/examples/Sample/" + name, kFileSource, false, 0, 0});
        HlydFLProcessSelectedFile(static_cast<std::int16_t>(oFile().Count()));
    }
    // "v1 = 1" ... "v100 = 100": records 1 to 100 and the end record 101.
    void openNumbered() {
        std::string text;
        for (int n = 1; n <= 100; ++n) text += "v" + std::to_string(n) + " = " + std::to_string(n) + "\n";
        open("Numbered.bas", text);
    }
    void key(int code, int shift = 0) {
        surface.calls.clear();
        picShow_KeyDown(code, shift);
    }
    bool redrawn() const { return !surface.callsOf("cls").empty(); }
    std::string firstText() const { return surface.callsOf("print").at(0).text; }
    ScrollBarModel& bar() { return mainWindow().vsbDisplay; }
    std::int32_t first() const { return emitterState().FirstRecord; }
};

TEST_F(ViewingTest, KeysMoveWithinTheScrollRange) {
    openNumbered();
    bar().Min = 1;  // the keys keep within the bar's range, whoever set it
    setScrollValue(10);
    EXPECT_EQ(first(), 10);
    key(kKeyUp);
    EXPECT_EQ(bar().Value, 9);
    EXPECT_EQ(firstText(), "v9");
    key(kKeyDown);
    EXPECT_EQ(first(), 10);

    std::int32_t from = bar().Value, page = bar().LargeChange;
    key(kKeyPageDown);
    EXPECT_EQ(bar().Value, from + page);
    EXPECT_EQ(first(), from + page);
    from = bar().Value;
    page = bar().LargeChange;
    ASSERT_GT(from - page, 1);
    key(kKeyPageUp);
    EXPECT_EQ(bar().Value, from - page);
    ASSERT_LT(bar().Value - bar().LargeChange, 1);
    key(kKeyPageUp);  // less than a page from the top: stops at Min
    EXPECT_EQ(bar().Value, 1);
    key(kKeyUp);  // at Min nothing moves and nothing is drawn
    EXPECT_EQ(bar().Value, 1);
    EXPECT_FALSE(redrawn());

    setScrollValue(40);
    key(kKeyHome);
    EXPECT_EQ(bar().Value, 1);
    EXPECT_EQ(firstText(), "v1");

    // A resize redraws in place, with the view's new height.
    setScrollValue(20);
    surface.calls.clear();
    viewResized(6000);
    EXPECT_EQ(emitterState().ViewHeight, 6000);
    EXPECT_EQ(firstText(), "v20");
}

TEST_F(ViewingTest, EndAndPageDownNearTheEndAskForTheEnd) {
    openNumbered();
    key(kKeyEnd);
    // The end request draws from 101 - 30; the range is then set from that page, and the value
    // stands at the new maximum.
    EXPECT_EQ(first(), 71);
    EXPECT_EQ(surface.callsOf("print").back().text, "100");
    EXPECT_EQ(bar().Value, bar().Max);
    EXPECT_FALSE(viewingState().NotAtEnd);

    key(kKeyUp);
    EXPECT_TRUE(viewingState().NotAtEnd);
    ASSERT_LT(bar().Value, bar().Max);
    ASSERT_GE(bar().Value + bar().LargeChange, bar().Max);
    key(kKeyPageDown);  // within a page of the end: exactly Max, which is the end request
    EXPECT_EQ(bar().Value, bar().Max);
    EXPECT_FALSE(viewingState().NotAtEnd);
    EXPECT_EQ(first(), 71);
}

TEST_F(ViewingTest, ValueOnAHiddenRecordShowsTheNextVisibleOne) {
    open("Form1.frm",  // the description, then record 5
         "VERSION 5.00\nBegin VB.Form Form1\n   Caption = \"Form1\"\nEnd\nAttribute VB_Name = \"Form1\"\nOption Explicit\n");
    // The description was shown when the file opened; now the user hides it and drags the bar.
    hlydSettings().ViewFormDef[kDisplay] = false;
    bar().Max = 50;
    surface.calls.clear();
    setScrollValue(2);
    EXPECT_EQ(first(), 5);
    EXPECT_EQ(bar().Value, 5);
    EXPECT_EQ(firstText(), "Attribute");
}

// The bar stands on the record at the top of the view however the view got there, and the keys
// move from that record.
TEST_F(ViewingTest, ScrollBarFollowsTheViewAfterJumpsAndHiddenLines) {
    openExample("Sample.bas");
    key(kKeyPageDown, kShiftCtrl);
    key(kKeyPageDown, kShiftCtrl);
    ASSERT_EQ(first(), 36);  // Fill, with the blank line above it
    EXPECT_EQ(bar().Value, 36);
    EXPECT_LE(bar().Value, bar().Max);
    key(kKeyUp);  // before, the bar stood on 17 and Up went to 16
    EXPECT_EQ(first(), 35);
    EXPECT_EQ(bar().Value, 35);

    // The form's description hidden: the file opens on its first code record, and so does the bar.
    // The view holds ten lines, so that the code doesn't fit and Down has somewhere to go.
    hlydSettings().ViewFormDef[kDisplay] = false;
    surface.resize(12000, 2000);
    emitterState().ViewHeight = 2000;
    openExample("Main.frm");
    ASSERT_EQ(first(), 26);
    EXPECT_EQ(bar().Min, 26);
    EXPECT_EQ(bar().Value, 26);
    key(kKeyDown);
    EXPECT_EQ(first(), 27);
}

TEST_F(ViewingTest, ProcedureListAndNextAndPriorProcedure) {
    // File order Zeta, Alpha, Beta; the list is sorted: <Declarations>, Alpha, Beta, Zeta.
    open("Procs.bas",
         "Option Explicit\n"
         "Sub Zeta()\nx = 1\nEnd Sub\n"    // records 2 to 4
         "Sub Alpha()\ny = 2\nEnd Sub\n"   // 5 to 7
         "Sub Beta()\nz = 3\nEnd Sub\n");  // 8 to 10
    SortedListModel& list = mainWindow().cboProc;
    ASSERT_EQ(list.items(), (std::vector<std::string>{"<Declarations>", "Alpha", "Beta", "Zeta"}));

    list.ListIndex = 1;
    cboProc_Click();
    EXPECT_EQ(first(), 5);
    EXPECT_EQ(list.ListIndex, 1);
    emitterState().ProcListSync = false;  // the emitter moving the list itself: no jump
    list.ListIndex = 3;
    cboProc_Click();
    EXPECT_EQ(first(), 5);
    emitterState().ProcListSync = true;

    // Next and prior go by the file's order, and select the entry in the list.
    mnuViewProc_Click(0);
    EXPECT_EQ(first(), 8);
    EXPECT_EQ(list.List(list.ListIndex), "Beta");
    EXPECT_EQ(mainWindow().lblRecord, "Line:8");
    mnuViewProc_Click(0);  // the last procedure: nothing further
    EXPECT_EQ(first(), 8);
    mnuViewProc_Click(1);
    EXPECT_EQ(first(), 5);
    mnuViewProc_Click(1);
    EXPECT_EQ(first(), 2);
    EXPECT_TRUE(mainWindow().command(kMnuViewProc1).enabled);
    mnuViewProc_Click(1);
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(list.ListIndex, 0);
    EXPECT_FALSE(mainWindow().command(kMnuViewProc1).enabled);
    key(kKeyPageDown, kShiftCtrl);
    EXPECT_EQ(first(), 2);
    EXPECT_EQ(list.List(list.ListIndex), "Zeta");

    // A line without a procedure behind it can only be the " ..." of an unfinished list.
    list.ListIndex = 4;
    try {
        cboProc_Click();
        ADD_FAILURE() << "no assertion";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, kInternalError);
    }
}

// A notch is three records, with Ctrl a page; the view stays within the bar and a turn to the end
// asks for the end, as the End key does.
TEST_F(ViewingTest, TheWheelScrollsThreeRecordsANotchAndAPageWithCtrl) {
    openNumbered();
    setScrollValue(10);
    picShow_Wheel({-kWheelNotch, 0, false});
    EXPECT_EQ(bar().Value, 13);
    EXPECT_EQ(first(), 13);
    picShow_Wheel({2 * kWheelNotch, 0, false});
    EXPECT_EQ(first(), 7);
    std::int32_t page = bar().LargeChange;
    picShow_Wheel({-kWheelNotch, 0, true});
    EXPECT_EQ(first(), 7 + page);
    picShow_Wheel({20 * kWheelNotch, 0, false});
    EXPECT_EQ(bar().Value, bar().Min);
    picShow_Wheel({-20 * kWheelNotch, 0, true});
    EXPECT_EQ(bar().Value, bar().Max);
    EXPECT_FALSE(viewingState().NotAtEnd);
    EXPECT_EQ(surface.callsOf("print").back().text, "100");
}

// Fine wheels and touchpads send small deltas: they add up to whole records, and a turn back
// starts afresh instead of first paying off what the other direction left.
TEST_F(ViewingTest, SmallWheelAndTouchpadDeltasAddUpToRecords) {
    EXPECT_EQ(wheelSteps({-15, 0, false}, 10).records, 0);
    EXPECT_EQ(wheelSteps({-15, 0, false}, 10).records, 0);
    EXPECT_EQ(wheelSteps({-15, 0, false}, 10).records, 1);  // 45 eighths: one record of a notch's three
    EXPECT_EQ(wheelSteps({30, 0, false}, 10).records, 0);
    EXPECT_EQ(wheelSteps({15, 0, false}, 10).records, -1);

    EXPECT_EQ(wheelSteps({0, -25, false}, 10).records, 2);  // pixels: one record per line's height
    EXPECT_EQ(wheelSteps({0, -5, false}, 10).records, 1);
    EXPECT_EQ(wheelSteps({0, -29, true}, 10).pages, 0);  // with Ctrl a notch's worth of lines is a page
    WheelSteps steps = wheelSteps({0, -1, true}, 10);
    EXPECT_EQ(steps.pages, 1);
    EXPECT_EQ(steps.records, 0);

    EXPECT_EQ(wheelScrollValue(5, 1, 50, 20, {3, 1}), 28);
    EXPECT_EQ(wheelScrollValue(5, 1, 50, 20, {0, -1}), 1);
}

TEST_F(ViewingTest, NextAndPriorFile) {
    open("One.bas", "a1 = 1\n");
    open("Two.bas", "b1 = 1\n");
    HlydFLProcessSelectedFile(1);
    surface.calls.clear();
    mnuViewFile_Click(0);
    EXPECT_EQ(fileTable().wCurrentFile, 2);
    EXPECT_EQ(firstText(), "b1");
    EXPECT_FALSE(mainWindow().command(kMnuViewFile0).enabled);
    EXPECT_TRUE(mainWindow().command(kMnuViewFile1).enabled);
    surface.calls.clear();
    mnuViewFile_Click(0);  // there is no third
    EXPECT_EQ(fileTable().wCurrentFile, 2);
    EXPECT_FALSE(redrawn());
    mnuViewFile_Click(1);
    EXPECT_EQ(fileTable().wCurrentFile, 1);
    EXPECT_FALSE(mainWindow().command(kMnuViewFile1).enabled);
}

}  // namespace
}  // namespace hlyd
