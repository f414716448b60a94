// The main window's commands: the recent-files list, the rules that enable the buttons and menu
// items with their tips, the view toggles, the list of open files, and Open and Close end to end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/app_info.h"
#include "display/command_states.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/mru.h"
#include "settings/settings_store.h"
#include "shell/command_status.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

class WindowCommandsTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        installCommandHooks();
        sbSetToolBar();
    }

    static CommandState& cmd(const std::string& name) { return mainWindow().command(name); }
    static void setMRU(std::vector<std::string> names) {
        for (int i = 1; i <= 7; ++i) hlydSettings().MRU[i] = i <= static_cast<int>(names.size()) ? names[i - 1] : "";
    }
    static std::vector<std::string> mru() {
        const auto& m = hlydSettings().MRU;
        return {m.begin() + 1, m.end()};
    }
    // cboProc, then the prior and next procedure's button and menu item, after the list stands at `index`.
    static std::vector<bool> procSteps(int index) {
        mainWindow().cboProc.ListIndex = index;
        sbProcButtonsSet();
        return {cmd("cboProc").enabled, cmd(kTbrPriorProcedure).enabled, cmd(kMnuViewProc1).enabled,
                cmd(kTbrNextProcedure).enabled, cmd(kMnuViewProc0).enabled};
    }
    static void openFiles(int count) {
        for (int i = 1; i <= count; ++i) oFile().Add(cFileDesc{"f" + std::to_string(i) + ".bas"});
    }
    std::string writeModule(const std::string& name) {
        fs::path path = fs::path(dir) / name;
        std::ofstream(path, std::ios::binary) << "Attribute VB_Name = \"M\"\nSub Go()\nEnd Sub\nSub Stop()\nEnd Sub\n";
        return path.string();
    }
};

using Names = std::vector<std::string>;

TEST_F(WindowCommandsTest, RecentListMovesTheNameToTheTopAndShowsInTheFileMenu) {
    setMRU({"A", "B", "C", "D", "E", "F", "G"});
    UpdateMRUList("D");
    EXPECT_EQ(mru(), (Names{"D", "A", "B", "C", "E", "F", "G"}));
    UpdateMRUList("H");  // an eighth name pushes out the last
    EXPECT_EQ(mru(), (Names{"H", "D", "A", "B", "C", "E", "F"}));

    // Letter case makes no other name, and the new spelling is kept, at the top already too.
    setMRU({"X.BAS", "Y.BAS", "C:\\A.BAS"});
    UpdateMRUList("c:\\a.bas");
    EXPECT_EQ(mru(), (Names{"c:\\a.bas", "X.BAS", "Y.BAS", "", "", "", ""}));
    UpdateMRUList("C:\\A.BAS");
    EXPECT_EQ(mru(), (Names{"C:\\A.BAS", "X.BAS", "Y.BAS", "", "", "", ""}));

    setMRU({"one.bas", "", "three.frm"});
    ShowMRU();
    EXPECT_EQ(mainWindow().mruCaptions, (Names{"&1 one.bas", "", "&3 three.frm", "", "", "", ""}));
}

TEST_F(WindowCommandsTest, CaptionsAndTipsWithNothingOpen) {
    EXPECT_EQ(cmd(kMnuViewProc1).caption, "Prior Procecdure");  // misspelt, as it has always read
    EXPECT_FALSE(cmd(kMnuDebug).visible);

    EXPECT_TRUE(cmd(kTbrOpen).enabled);
    EXPECT_EQ(cmd(kTbrOpen).tip, "Open a file or project for processing");
    EXPECT_FALSE(cmd(kTbrClose).enabled);
    EXPECT_EQ(cmd(kTbrClose).tip, "Not available unless a file is open");
    EXPECT_FALSE(cmd(kMnuFilClose).enabled);
    EXPECT_FALSE(cmd(kMnuFileHTML).enabled);
    EXPECT_FALSE(cmd(kTbrHelp).enabled);
    EXPECT_EQ(cmd(kTbrHelp).tip, "Not available - Help file Missing");
    for (const char* name : {kTbrPriorFile, kTbrNextFile, kTbrPriorProcedure, kTbrNextProcedure, "cboProc"})
        EXPECT_FALSE(cmd(name).enabled) << name;

    openFiles(1);
    fileTable().wCurrentFile = 1;
    HlydMSEnableHLYDControls();
    EXPECT_TRUE(cmd(kTbrClose).enabled);
    EXPECT_EQ(cmd(kTbrClose).tip, "Close this file");
    EXPECT_TRUE(cmd(kMnuFilCloseAll).enabled);
    EXPECT_TRUE(cmd(kMnuFileHTML).enabled);
    // Printing and the option dialogs stay off until they are built.
    EXPECT_FALSE(cmd(kTbrPrint).enabled);
    EXPECT_EQ(cmd(kTbrPrint).tip, "Printing not currently available");
    EXPECT_TRUE(cmd(kMnuOptionsDisplay).enabled);
    EXPECT_TRUE(cmd(kTbrDisplayOptions).enabled);
    EXPECT_EQ(cmd(kTbrDisplayOptions).tip, "Set Halyard Display Options ");
}

TEST_F(WindowCommandsTest, ProcedureButtonsFollowThePositionInTheList) {
    openFiles(1);
    fileTable().wCurrentFile = 1;
    for (const char* p : {"Alpha", "Beta", "Gamma"}) mainWindow().cboProc.AddItem(p);
    EXPECT_EQ(procSteps(0), (std::vector<bool>{true, false, false, true, true}));
    EXPECT_EQ(cmd(kTbrPriorProcedure).tip, "Not available");
    EXPECT_EQ(cmd(kTbrNextProcedure).tip, "Display the Next procedure in File");
    EXPECT_EQ(procSteps(2), (std::vector<bool>{true, true, true, false, false}));
    EXPECT_EQ(cmd(kTbrPriorProcedure).tip, "Display the Prior procedure in File");
    fileTable().wCurrentFile = 0;  // no file shown: the list takes no input
    EXPECT_EQ(procSteps(2), (std::vector<bool>{false, false, false, false, false}));

    // A file of declarations only gives the list one entry: neither step leads anywhere, whether
    // the list stands on its entry or on none.
    showSource("decl.bas", "Attribute VB_Name = \"D\"\nOption Explicit\nDim x As Long\n");
    ASSERT_EQ(mainWindow().cboProc.ListCount(), 1);
    for (int index : {-1, 0})
        EXPECT_EQ(procSteps(index), (std::vector<bool>{true, false, false, false, false})) << index;
}

TEST_F(WindowCommandsTest, FileButtonsFollowTheCurrentFile) {
    openFiles(3);
    auto at = [](int current) {
        fileTable().wCurrentFile = static_cast<std::int16_t>(current);
        sbFileButtonSet();
        return std::vector<bool>{cmd(kTbrPriorFile).enabled, cmd(kMnuViewFile1).enabled, cmd(kTbrNextFile).enabled,
                                 cmd(kMnuViewFile0).enabled};
    };
    EXPECT_EQ(at(1), (std::vector<bool>{false, false, true, true}));
    EXPECT_EQ(cmd(kTbrNextFile).tip, "Display the Next File in list");
    EXPECT_EQ(at(2), (std::vector<bool>{true, true, true, true}));
    EXPECT_EQ(at(3), (std::vector<bool>{true, true, false, false}));
    EXPECT_EQ(cmd(kTbrNextFile).tip, "Not available");
    EXPECT_EQ(cmd(kTbrPriorFile).tip, "Display the Prior File in list");
}

TEST_F(WindowCommandsTest, ViewTogglesFlipTheSettingsAndTheirChecks) {
    EXPECT_TRUE(cmd(kMnuViewToolbar).checked);
    mnuViewToolbar_Click();
    mnuViewToolTips_Click();
    mnuViewStatus_Click();
    EXPECT_FALSE(hlydSettings().ToolBar);
    EXPECT_FALSE(hlydSettings().ToolTips);
    EXPECT_FALSE(hlydSettings().StatusBar);
    EXPECT_FALSE(cmd(kMnuViewToolbar).checked);
    EXPECT_FALSE(cmd(kMnuViewToolTips).checked);
    EXPECT_FALSE(cmd(kMnuViewStatus).checked);

    saveWindowState();
    EXPECT_FALSE(iniHandler().ReadBool("ToolBar", true, std::string("General")));
    EXPECT_FALSE(iniHandler().ReadBool("StatusBar", true, std::string("General")));

    mnuViewToolbar_Click();
    EXPECT_TRUE(hlydSettings().ToolBar);
    EXPECT_TRUE(cmd(kMnuViewToolbar).checked);
}

TEST_F(WindowCommandsTest, EnablingRefreshesTheCommandsAndClosingReachesThemThroughTheHook) {
    openFiles(2);
    fileTable().wCurrentFile = 1;
    HlydMSEnableHLYDControls();
    EXPECT_TRUE(cmd(kTbrClose).enabled);

    cHLYD::CloseFiles();  // reaches the commands through the hook
    EXPECT_FALSE(cmd(kTbrClose).enabled);
    EXPECT_TRUE(mainWindow().viewFileList.empty());
}

TEST_F(WindowCommandsTest, ViewMenuListStopsShortAtNineFiles) {
    openFiles(8);
    LoadViewMenu();
    ASSERT_EQ(mainWindow().viewFileList.size(), 8u);
    EXPECT_EQ(mainWindow().viewFileList[0], "1. f1.bas");
    EXPECT_EQ(mainWindow().viewFileList[7], "8. f8.bas");

    openFiles(1);
    LoadViewMenu();
    ASSERT_EQ(mainWindow().viewFileList.size(), 9u);
    EXPECT_EQ(mainWindow().viewFileList[7], "8. f8.bas");
    EXPECT_EQ(mainWindow().viewFileList[8], "&More Files ... ");
}

TEST_F(WindowCommandsTest, OpenShowsTheChosenFileAndCloseEmptiesTheWindow) {
    std::string a = writeModule("a.bas");
    ui.openAnswers = {Names{a}};
    mnuFilOpen_Click();

    EXPECT_EQ(fileTable().wCurrentFile, 1);
    EXPECT_EQ(mainWindow().Caption, theAppInfo().Title + " - a.bas");
    EXPECT_TRUE(cmd("cboProc").enabled);
    EXPECT_TRUE(cmd(kTbrClose).enabled);
    EXPECT_EQ(mainWindow().mruCaptions.at(0), "&1 " + a);
    EXPECT_EQ(mainWindow().viewFileList, Names{"1. " + a});

    mnuFilClose_Click();
    EXPECT_EQ(oFile().Count(), 0);
    EXPECT_FALSE(cmd(kTbrClose).enabled);
    EXPECT_FALSE(cmd("cboProc").enabled);

    // cancel: nothing opens, nothing breaks
    mnuFilOpen_Click();
    EXPECT_EQ(oFile().Count(), 0);

    mnuFileMRU_Click(1);
    EXPECT_EQ(oFile().Count(), 1);
    EXPECT_EQ(ui.dialogs.size(), 2u);
}

// Closing one member takes the whole project with it, so the user is asked first; the project's
// own listing closes without a question.
TEST_F(WindowCommandsTest, ClosingAMemberAsksBeforeTheProjectCloses) {
    writeModule("a.bas");
    writeModule("b.bas");
    fs::path project = fs::path(dir) / "p.vbp";
    std::ofstream(project, std::ios::binary) << "Type=Exe\nModule=A; a.bas\nModule=B; b.bas\n";
    ui.openAnswers = {Names{project.string()}};
    mnuFilOpen_Click();
    ASSERT_EQ(oFile().Count(), 3);
    HlydFLProcessSelectedFile(2);
    ASSERT_EQ(fileTable().wCurrentFile, 2);

    ui.answers = {MsgAnswer::Cancel};
    mnuFilClose_Click();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text,
              "a.bas is part of the project p.vbp, which closes as a whole.\n\n"
              "Close the project and all its files?");
    EXPECT_EQ(ui.shown[0].buttons, MsgButtons::OKCancel);
    EXPECT_EQ(oFile().Count(), 3);
    EXPECT_EQ(mainWindow().Caption, theAppInfo().Title + " - a.bas");

    ui.answers = {MsgAnswer::OK};
    mnuFilClose_Click();
    EXPECT_EQ(oFile().Count(), 0);

    ui.openAnswers = {Names{project.string()}};
    mnuFilOpen_Click();
    HlydFLProcessSelectedFile(1);
    ui.shown.clear();
    mnuFilClose_Click();
    EXPECT_TRUE(ui.shown.empty());
    EXPECT_EQ(oFile().Count(), 0);
}

// A recent file that is gone is not opened; the user may take it off the list.
TEST_F(WindowCommandsTest, MissingRecentFileIsOfferedForRemoval) {
    std::string a = writeModule("a.bas");
    std::string gone = (fs::path(dir) / "gone.bas").string();
    setMRU({gone, a});
    ShowMRU();
    ui.answers = {MsgAnswer::No};
    mnuFileMRU_Click(1);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].buttons, MsgButtons::YesNo);
    EXPECT_NE(ui.shown[0].text.find(gone), std::string::npos);
    EXPECT_EQ(oFile().Count(), 0);
    EXPECT_EQ(mru(), (Names{gone, a, "", "", "", "", ""}));

    ui.answers = {MsgAnswer::Yes};
    mnuFileMRU_Click(1);
    EXPECT_EQ(mru(), (Names{a, "", "", "", "", "", ""}));
    EXPECT_EQ(mainWindow().mruCaptions.at(0), "&1 " + a);
    EXPECT_EQ(mainWindow().mruCaptions.at(1), "");
    EXPECT_EQ(iniHandler().ReadString("MRU1", "", "MRU"), a);
    EXPECT_EQ(iniHandler().ReadString("MRU2", "", "MRU"), "");
    EXPECT_EQ(oFile().Count(), 0);
}

// A project whose members are all missing leaves nothing open, and nothing to act on is offered.
TEST_F(WindowCommandsTest, ProjectWithNoReadableMemberLeavesNothingEnabled) {
    fs::path project = fs::path(dir) / "p.vbp";
    std::ofstream(project, std::ios::binary) << "Type=Exe\nModule=M1; missing1.bas\nModule=M2; missing2.bas\n";
    ui.openAnswers = {Names{project.string()}};
    mnuFilOpen_Click();
    for (const char* name :
         {kMnuFilClose, kMnuFilCloseAll, kTbrClose, kMnuFileHTML, "cboProc", kTbrProcedures, kTbrPriorProcedure,
          kMnuViewProc1, kTbrNextProcedure, kMnuViewProc0, kTbrPriorFile, kMnuViewFile1, kTbrNextFile, kMnuViewFile0})
        EXPECT_FALSE(cmd(name).enabled) << name << " with " << oFile().Count() << " files, current "
                                        << fileTable().wCurrentFile;
}

// Once a command is over the status label is at rest again, unless it holds a result to read.
TEST_F(WindowCommandsTest, StatusComesBackToReadyAfterACommand) {
    for (const char* progress :
         {"Processing...", "Line:", "Line:120", " Lines parsed: 1,230 ", "Generating HTML for file a.bas ...", ""}) {
        mainWindow().lblStatus = progress;
        settleStatusAfterCommand();
        EXPECT_EQ(mainWindow().lblStatus, "Ready") << progress;
    }
    mainWindow().lblStatus = "HTML generated for a.bas";
    settleStatusAfterCommand();
    EXPECT_EQ(mainWindow().lblStatus, "HTML generated for a.bas");
}

}  // namespace
}  // namespace hlyd
