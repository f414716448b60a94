// Files at the limits of the program, made here at run time: what a limit leaves out is said in the
// window's status (the run without a window is in command_line_test); tens of thousands of
// procedures are indexed without overflow; nesting thousands deep costs output that grows with the
// input, not with the square of its depth.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "display/screen_emitter.h"
#include "fake_surface.h"
#include "files/cut_reports.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "html/html_emit.h"
#include "shell/print_dialog.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "models/select_proc_model.h"
#include "settings/attributes.h"
#include "shell/print_commands.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd::test {
namespace {

namespace fs = std::filesystem;

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// A procedure before line 4 and one after it; line 4 is more than the reader takes.
std::string longLineModule() {
    return "Attribute VB_Name = \"Long\"\r\nSub BeforeTheCut()\r\nEnd Sub\r\nx = \"" + std::string(3000, 'a') +
           "\"\r\nSub AfterTheCut()\r\nEnd Sub\r\n";
}

// `depth` nested blocks in one procedure, opened and closed again.
std::string nestedModule(int depth) {
    std::string text = "Attribute VB_Name = \"Deep\"\r\nSub Deep()\r\n";
    for (int level = 1; level <= depth; ++level) text += "If a Then\r\n";
    text += "x = 1\r\n";
    for (int level = 1; level <= depth; ++level) text += "End If\r\n";
    return text + "End Sub\r\n";
}

// The window: the cut stands in the status once the file is shown, and after an export or a print
// of it.
class WindowLimitsTest : public RecorderTest {};

TEST_F(WindowLimitsTest, ACutFileSaysSoInTheStatusWhenShownExportedAndPrinted) {
    std::string name = writeTempFile("LongView.bas", longLineModule());
    oFile().Add({name, kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    std::string told = name +
                       ": reading stopped at line 4 (Record too big -- greater than 2048 characters); "
                       "that line and the lines after it are left out";
    EXPECT_EQ(mainWindow().lblStatus, told);
    EXPECT_EQ(cutsTold(), 1);

    ui.saveAnswer = dir + "/LongView.html";
    HlydMNSaveAsHTML();
    EXPECT_EQ(mainWindow().lblStatus, "HTML generated for " + name + "; " + told);

    mainWindow().lblStatus.clear();
    mainWindow().cboProc.ListIndex = yProc().back().ListIndex;  // the procedure before the cut
    tbrPrintThisProcedure_Click();
    EXPECT_TRUE(textPrinted(events, "BeforeTheCut"));
    EXPECT_EQ(mainWindow().lblStatus, told);
}

// 32,768 procedures and more: every index into the procedure list is wide enough.
class ManyProceduresTest : public SurfaceTest {
protected:
    static constexpr int kProcs = 32800;
    void SetUp() override {
        SurfaceTest::SetUp();
        displayAttributes().Format[kDisplay].ConnectControls = 0;
        emitterState().ViewHeight = 8000;
        showSource("Many.bas", procedures(kProcs, 0));
        ASSERT_EQ(yProc().size(), static_cast<std::size_t>(kProcs));
    }
};

TEST_F(ManyProceduresTest, TheViewTheHtmlAndTheSelectionReachTheLastProcedure) {
    // The view from a record of a procedure past 32,767 keeps the list on that procedure.
    const ProcEntry& late = yProc()[kProcs - 10];
    std::int32_t first = late.FirstRecord;
    HlydDSEmitRequestedData(first);
    EXPECT_EQ(mainWindow().cboProc.ListIndex, late.ListIndex);

    ui.saveAnswer = dir + "/many.html";
    ASSERT_TRUE(HTMLEmitAFile());
    std::string document = readAll(dir + "/many.html");
    EXPECT_NE(document.find("<a name=\"P" + std::to_string(kProcs) + "\">"), std::string::npos);

    test::TestViews views;
    views.selectProc = [](SelectProcModel& m) {
        cmdAll_Click(m);
        return true;
    };
    PrintDialogModel dialog;
    EXPECT_EQ(HlydHLYDPrintSelectProc(dialog, false), kProcs);
    EXPECT_EQ(dialog.lblProcs, "Entire file selected.");
}

// Nesting thousands deep: the indentation and the connector levels drawn are capped, so that what
// is written grows with the input.
class DeepNestingTest : public RecorderTest {
protected:
    void show(int depth) {
        resetFileTable();
        showSource("Deep" + std::to_string(depth) + ".bas", nestedModule(depth));
    }
    std::size_t htmlSize(int depth) {
        show(depth);
        ui.saveAnswer = dir + "/deep.html";
        EXPECT_TRUE(HTMLEmitAFile());
        return fs::file_size(dir + "/deep.html");
    }
};

TEST_F(DeepNestingTest, HtmlGrowsWithTheInputNotWithTheSquareOfTheDepth) {
    displayAttributes().Format[kDisplay].Indent = 1;
    std::size_t shallow = htmlSize(500), deep = htmlSize(1500);
    // Three times the lines: about three times the document (nine times, were every level indented).
    EXPECT_LT(static_cast<double>(deep), 3.3 * static_cast<double>(shallow)) << shallow << " " << deep;
}

TEST_F(DeepNestingTest, APageDrawsAFewConnectorLinesARecordNotOnePerOpenLevel) {
    displayAttributes().Format[kPrint].ConnectControls = 1;
    displayAttributes().Format[kPrint].Indent = 1;
    show(3000);
    events.clear();
    ASSERT_TRUE(runPrint({}).written);
    std::map<std::int32_t, int> linesOfPage, recordsOfPage;
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::Line) ++linesOfPage[e.page];
        if (e.kind == PrintEvent::Text && (e.text == "If" || e.text == "End")) ++recordsOfPage[e.page];
    }
    ASSERT_GT(linesOfPage.size(), 100u);
    for (const auto& [page, lines] : linesOfPage) EXPECT_LE(lines, 2 * recordsOfPage[page] + 40) << "page " << page;
}

}  // namespace
}  // namespace hlyd::test
