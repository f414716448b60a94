// Files at the limits of the program, made here at run time: what a limit leaves out is said (in
// the window's status; without a window on standard error, with exit status 1); tens of thousands
// of procedures are indexed without overflow; nesting thousands deep costs output that grows
// with the input, not with the square of its depth.
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "base/app_info.h"
#include "display/screen_emitter.h"
#include "fake_surface.h"
#include "files/cut_reports.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/project_choice.h"
#include "files/project_listing.h"
#include "html/html_emit.h"
#include "printing/print_dialog.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/select_proc.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/command_line.h"
#include "shell/module_reset.h"
#include "shell/print_commands.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

namespace fs = std::filesystem;

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

std::string module(const std::string& name, const std::string& proc) {
    return "Attribute VB_Name = \"" + name + "\"\r\nSub " + proc + "()\r\nEnd Sub\r\n";
}

// A procedure before line 4 and one after it; line 4 is more than the reader takes.
std::string longLineModule() {
    std::string tooLong = "x = \"" + std::string(3000, 'a') + "\"\r\n";
    return module("Long", "BeforeTheCut") + tooLong + "Sub AfterTheCut()\r\nEnd Sub\r\n";
}

// 1001 lines of 500 tokens after the procedure: reading stops on the line that passes 500,000.
std::string tooManyTokensModule() {
    std::string line;
    for (int i = 0; i < 500; ++i) line += "v ";
    std::string text = module("Big", "BeforeTheCut");
    for (int n = 0; n < 1001; ++n) text += line + "\r\n";
    return text + "Sub AfterTheCut()\r\nEnd Sub\r\n";
}

// `depth` nested blocks in one procedure, opened and closed again.
std::string nestedModule(int depth) {
    std::string text = "Attribute VB_Name = \"Deep\"\r\nSub Deep()\r\n";
    for (int level = 1; level <= depth; ++level) text += "If a Then\r\n";
    text += "x = 1\r\n";
    for (int level = 1; level <= depth; ++level) text += "End If\r\n";
    return text + "End Sub\r\n";
}

struct CutCase {
    const char* name;
    std::string (*text)();
    const char* reason;
};

// The program started with a name on its command line, without a window, on a recording printer.
class BatchLimitsTest : public ConfigDirTest, public ::testing::WithParamInterface<CutCase> {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        initAppInfo(nullptr);
        setPrinterSystem(&recorder);
    }
    std::string write(const std::string& name, const std::string& text) {
        fs::create_directories(fs::path(dir + "/" + name).parent_path());
        std::ofstream(dir + "/" + name, std::ios::binary) << text;
        return dir + "/" + name;
    }
    int run(const std::string& commandLine, BatchOptions options = {}) {
        events.clear();
        err.str("");
        resetModuleState();
        commandLineJob() = CommandLineJob{options, 0, &out, &err};
        EXPECT_EQ(Main(commandLine), 0);
        return commandLineJob().exitStatus;
    }
    std::vector<std::string> printedProcs() const {
        std::vector<std::string> procs;
        for (const PrintEvent& e : events)
            if (e.kind == PrintEvent::Text && e.text.rfind("In", 0) == 0 && (procs.empty() || procs.back() != e.text))
                procs.push_back(e.text);
        return procs;
    }
    static std::size_t occurrences(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
        return count;
    }
    std::vector<PrintEvent> events;
    RecordingPrinterSystem recorder{"Recorder", [this](const PrintEvent& e) { events.push_back(e); }};
    std::ostringstream out, err;
};

// The file is printed, or exported, up to the line where reading stopped; the run says where and
// why, once however often the file is read, and ends with status 1.
TEST_P(BatchLimitsTest, AFileCutAtALimitOfTheReaderIsToldAndEndsWithStatusOne) {
    std::string source = write(std::string(GetParam().name) + ".bas", GetParam().text());
    std::string told = source + ": reading stopped at line ";
    for (bool html : {false, true}) {
        BatchOptions options;
        if (html) options.htmlOut = dir + "/out.html";
        ui.saveAnswer = options.htmlOut;
        EXPECT_EQ(run(source, options), kExitLeftOut) << html;
        EXPECT_EQ(occurrences(err.str(), told), 1u) << err.str();
        EXPECT_NE(err.str().find(std::string("(") + GetParam().reason), std::string::npos) << err.str();
        std::string document = html ? readAll(dir + "/out.html") : "";
        for (const char* proc : {"BeforeTheCut", "AfterTheCut"}) {
            bool printed = textPrinted(events, proc) || document.find(proc) != std::string::npos;
            EXPECT_EQ(printed, proc == std::string("BeforeTheCut")) << proc << (html ? " in HTML" : " printed");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, BatchLimitsTest,
                         ::testing::Values(CutCase{"LongLine", longLineModule, "Record too big"},
                                           CutCase{"TooManyTokens", tooManyTokensModule, "Too many tokens"}),
                         [](const auto& info) { return std::string(info.param.name); });

// The 999 lines a project may list are the Project File dialog's bound: a run without it prints
// every member. In the window the dialog lists what it can, and the status says what it cannot.
TEST_F(BatchLimitsTest, EveryMemberOfAProjectOfManyLinesPrintsAndTheDialogSaysWhatItCannotList) {
    std::string project;
    for (int m = 1; m <= 200; ++m) {
        std::string name = "M" + std::to_string(m);
        project += "Module=" + name + "; " + name + ".bas\r\n";
        for (int other = 0; other < 9; ++other) project += "Title=\"Many\"\r\n";
        write("Many/" + name + ".bas", module(name, "In" + name));
    }
    std::string vbp = write("Many/Many.vbp", project);
    EXPECT_EQ(run(vbp), 0) << err.str();
    std::vector<std::string> procs = printedProcs();
    ASSERT_EQ(procs.size(), 200u);
    EXPECT_EQ(procs.back(), "InM200");

    resetModuleState();
    BabInitFrom(keywordFilePath());
    std::size_t offered = 0;
    setProjectFileView([&offered](ProjectFileModel& m) {
        for (int n = 1; n <= m.Outline.NodeCount(); ++n) offered += m.Outline.Node(n).IsFile ? 1 : 0;
        return false;
    });
    PFParseFile({cFileDesc{vbp, kFileProject, true, 0, 0}});
    EXPECT_EQ(offered, 100u);  // lines 1 to 999
    EXPECT_EQ(mainWindow().lblStatus, vbp + ": the Project File dialog lists the first 999 of its 2000 lines; "
                                            "100 members named after them cannot be chosen here");
    resetProjectFileDialog();
}

TEST_F(BatchLimitsTest, MembersNotFoundStandInTheWindowsStatus) {
    write("Gone/There.bas", module("There", "InThere"));
    std::string vbp = write("Gone/P.vbp", "Module=There; There.bas\r\nModule=A; A.bas\r\nModule=B; B.bas\r\n"
                                          "Module=C; C.bas\r\nModule=D; D.bas\r\n");
    BabInitFrom(keywordFilePath());
    setProjectFileView([](ProjectFileModel& m) { return cmdOK_Click(m); });
    PFParseFile({cFileDesc{vbp, kFileProject, true, 0, 0}});
    EXPECT_EQ(mainWindow().lblStatus, vbp + ": 4 members were not found and left out (A.bas, B.bas, C.bas, ...)");
    resetProjectFileDialog();
}

// The window: the cut stands in the status once the file is shown, and after an export or a print
// of it.
class WindowLimitsTest : public RecorderTest {};

TEST_F(WindowLimitsTest, ACutFileSaysSoInTheStatusWhenShownExportedAndPrinted) {
    std::string name = writeTempFile("LongView.bas", longLineModule());
    oFile().Add({name, kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    std::string told = name + ": reading stopped at line 4 (Record too big -- greater than 2048 characters); "
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

    setSelectProcView([](SelectProcModel& m) {
        cmdAll_Click(m);
        return true;
    });
    PrintDialogModel dialog;
    EXPECT_EQ(HlydHLYDPrintSelectProc(dialog, false), kProcs);
    EXPECT_EQ(dialog.lblProcs, "Entire file selected.");
    setSelectProcView(nullptr);
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
    for (const auto& [page, lines] : linesOfPage)
        EXPECT_LE(lines, 2 * recordsOfPage[page] + 40) << "page " << page;
}

}  // namespace
}  // namespace hlyd::test
