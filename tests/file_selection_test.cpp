// Choosing files to open: the Open dialog's filter and answers, the kinds of names, the rules on
// projects mixed with source files, names open already, and the recent-files list they feed.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/c_debug.h"
#include "files/file_selection.h"
#include "shell/project_choice.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/project_file.h"
#include "settings/settings_store.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

using test::Chosen;

const char* const kModule = "Attribute VB_Name = \"M\"\nOption Explicit\n\nSub Go()\nEnd Sub\n";

class FileSelectionTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        src_ = fs::path(dir) / "src";
        fs::create_directories(src_);
    }

    std::string write(const std::string& name, const std::string& text = kModule) {
        fs::path path = src_ / name;
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }
    std::vector<std::string> tableNames() const {
        std::vector<std::string> names;
        for (const cFileDesc& e : oFile()) names.push_back(e.FileName);
        return names;
    }
    bool shownText(const std::string& text) const {
        for (const MessageBoxRequest& r : ui.shown)
            if (r.text == text) return true;
        return false;
    }
    static std::int16_t status() { return theDebug().BabStatus; }

    fs::path src_;
};

TEST_F(FileSelectionTest, FilterFollowsTheExtensionLists) {
    EXPECT_EQ(openDialogFilter(),
              "VB Files (*.FRM;*.CTL;*.PAG;*.DOB;*.DSR;*.BAS;*.CLS;*.VBP;*.MAK;*.VBG)|"
              "*.FRM;*.CTL;*.PAG;*.DOB;*.DSR;*.BAS;*.CLS;*.VBP;*.MAK;*.VBG|"
              "Forms (*.FRM;*.CTL;*.PAG;*.DOB;*.DSR)|*.FRM;*.CTL;*.PAG;*.DOB;*.DSR|"
              "Code Modules (*.BAS;*.CLS)|*.BAS;*.CLS|"
              "Project Files (*.VBP;*.MAK;*.VBG)|*.VBP;*.MAK;*.VBG|"
              "All Files (*.*)|*.*");

    hlydSettings().ResourceExt = "RES";
    EXPECT_NE(openDialogFilter().find("|Resource Files (*.RES)|*.RES|All Files (*.*)|*.*"), std::string::npos);
}

TEST_F(FileSelectionTest, DialogIsAskedWithTheSettingsAndCancelGivesStatus8) {
    hlydSettings().DefaultFileLoc = src_.string();
    hlydSettings().CDLGFileIndex = 3;
    oFile().Add(cFileDesc{"kept.bas"});

    GetFilesToProcess(0);

    ASSERT_EQ(ui.dialogs.size(), 1u);
    const FileDialogRequest& r = ui.dialogs[0];
    EXPECT_EQ(r.title, "File(s) to Process");
    EXPECT_EQ(r.directory, src_.string());
    EXPECT_EQ(r.fileName, "");
    EXPECT_EQ(r.filter, openDialogFilter());
    EXPECT_EQ(r.filterIndex, 3);
    EXPECT_TRUE(r.multiSelect);
    EXPECT_EQ(status(), 8);
    EXPECT_EQ(tableNames(), std::vector<std::string>{"kept.bas"});
    EXPECT_FALSE(ui.busy);
}

// The Open dialog starts in the folder of the last files opened, in this run and the next; a
// DefaultFileLoc that the user set still wins, and a Cancel moves nothing. With no folder, or
// one that is gone, it starts in the home folder, never on the machine's top.
TEST_F(FileSelectionTest, DialogStartsWhereFilesWereLastOpened) {
    const char* home = std::getenv("HOME");
    ASSERT_NE(home, nullptr);
    std::string a = write("a.bas");
    ui.openAnswers.push_back(std::vector<std::string>{a});
    GetFilesToProcess(0);
    EXPECT_EQ(ui.dialogs.back().directory, home);
    EXPECT_EQ(hlydSettings().LastFileLoc, src_.string());
    EXPECT_EQ(iniHandler().ReadString("LastFileLoc", "", "General"), src_.string());

    GetFilesToProcess(0);  // cancelled
    EXPECT_EQ(ui.dialogs.back().directory, src_.string());
    EXPECT_EQ(hlydSettings().LastFileLoc, src_.string());

    hlydSettings().DefaultFileLoc = dir;
    GetFilesToProcess(0);
    EXPECT_EQ(ui.dialogs.back().directory, dir);

    hlydSettings().DefaultFileLoc = dir + "/gone";
    GetFilesToProcess(0);
    EXPECT_EQ(ui.dialogs.back().directory, src_.string());
    hlydSettings().LastFileLoc = dir + "/gone too";
    GetFilesToProcess(0);
    EXPECT_EQ(ui.dialogs.back().directory, home);
}

TEST_F(FileSelectionTest, DialogAnswersInEitherFormGiveFullNames) {
    auto namesFor = [this](Chosen answer) {
        ui.openAnswers.push_back(answer);
        std::vector<std::string> names;
        GetListFromCommonDialog(names);
        return names;
    };
    const std::string sep(1, fs::path::preferred_separator);
    using V = std::vector<std::string>;
    EXPECT_EQ(namesFor(V{"/x/a.bas", "/y/b.frm"}), (V{"/x/a.bas", "/y/b.frm"}));
    EXPECT_EQ(namesFor(V{std::string("/x\0a.bas\0b.frm", 14)}), (V{"/x" + sep + "a.bas", "/x" + sep + "b.frm"}));
    EXPECT_EQ(namesFor(V{std::string("/x/\0a.bas", 9)}), V{"/x/a.bas"});
}

TEST_F(FileSelectionTest, ExtensionKinds) {
    EXPECT_TRUE(fblnValidFileExtension("C:\\src\\Main.frm", "F"));
    EXPECT_TRUE(fblnValidFileExtension("util.Bas", "M"));
    EXPECT_TRUE(fblnValidFileExtension("util.cls", "anything else is code"));
    EXPECT_TRUE(fblnValidFileExtension("app.vbg", "P"));
    EXPECT_FALSE(fblnValidFileExtension("app.vbp", "M"));
    EXPECT_FALSE(fblnValidFileExtension("util.bas", "F"));
    EXPECT_FALSE(fblnValidFileExtension("app.res", "R"));  // the resource list is empty by default
    // Without a point the whole name is the extension.
    EXPECT_TRUE(fblnValidFileExtension("bas", "M"));
    EXPECT_FALSE(fblnValidFileExtension("README", "M"));
    // Only what follows the last point counts.
    EXPECT_FALSE(fblnValidFileExtension("old.bas.txt", "M"));
}

TEST_F(FileSelectionTest, FindNameInListMatchesExactly) {
    for (const char* name : {"C:\\A.BAS", "C:\\B.BAS", "C:\\C.BAS"}) oFile().Add(cFileDesc{name});
    std::int16_t which = -1;

    FindNameInList("C:\\B.BAS", which);
    EXPECT_EQ(which, 2);
    EXPECT_EQ(status(), 9);

    FindNameInList("c:\\b.bas", which);  // letter case makes another name
    EXPECT_EQ(which, 4);
    EXPECT_EQ(status(), 5);

    theDebug().BabStatus = 0;
    FindNameInList("", which);
    EXPECT_EQ(which, 0);
    EXPECT_EQ(status(), 5);
}

TEST_F(FileSelectionTest, ParseLineSplitsAtTheDelimiter) {
    std::vector<std::string> parts{"left over"};
    ParseLine("", '|', parts);
    EXPECT_TRUE(parts.empty());
    ParseLine("a||b", '|', parts);
    EXPECT_EQ(parts, (std::vector<std::string>{"a", "", "b"}));
    ParseLine("one", '|', parts);
    EXPECT_EQ(parts, std::vector<std::string>{"one"});
}

TEST_F(FileSelectionTest, NameOpenAlreadyIsNotAddedAgain) {
    for (const char* name : {"a.bas", "b.bas", "c.bas"}) oFile().Add(cFileDesc{write(name)});
    ui.openAnswers.push_back(std::vector<std::string>{(src_ / "b.bas").string()});

    GetFilesToProcess(0);

    EXPECT_EQ(oFile().Count(), 3);
    EXPECT_EQ(fileTable().wCurrentFile, 1);  // the caller shows the one after it: the match
    EXPECT_NE(status(), 8);
}

TEST_F(FileSelectionTest, TwoFilesJoinTheTableAndTheRecentList) {
    std::string a = write("a.bas"), b = write("b.bas");
    ui.openAnswers.push_back(
            std::vector<std::string>{src_.string() + std::string(1, '\0') + "a.bas" + std::string(1, '\0') + "b.bas"});

    GetFilesToProcess(0);

    EXPECT_EQ(tableNames(), (std::vector<std::string>{a, b}));
    EXPECT_EQ(oFile().Item(1).FileType, kFileSource);
    EXPECT_EQ(fileTable().wCurrentFile, 1);
    EXPECT_FALSE(fileTable().projectOpen);
    EXPECT_EQ(hlydSettings().MRU[1], b);
    EXPECT_EQ(hlydSettings().MRU[2], a);
    EXPECT_EQ(iniHandler().ReadString("MRU1", "", "MRU"), b);
    EXPECT_FALSE(ui.busy);
}

TEST_F(FileSelectionTest, ProjectWithSourceFileDropsTheProject) {
    std::string project = write("app.vbp", "Type=Exe\nModule=M; a.bas\nName=\"App\"\n");
    std::string a = write("a.bas");
    ui.openAnswers.push_back(std::vector<std::string>{project, a});

    GetFilesToProcess(0);

    EXPECT_TRUE(shownText("A Project-file may not be specified with other files."));
    EXPECT_EQ(tableNames(), std::vector<std::string>{a});
    EXPECT_EQ(oFile().Item(1).FileType, kFileSource);
    EXPECT_FALSE(fileTable().projectOpen);
}

// A project chosen alone closes what is open and is remembered; a real choice then replaces the
// open project, and a member chosen again opens alone.
TEST_F(FileSelectionTest, ProjectAloneIsReadAndRememberedAndChosenFilesReplaceIt) {
    write("a.bas");
    std::string project = write("app.vbp", "Type=Exe\nModule=M; a.bas\nName=\"App\"\n");
    oFile().Add(cFileDesc{write("other.bas")});
    ui.openAnswers.push_back(std::vector<std::string>{project});
    GetFilesToProcess(0);
    ASSERT_EQ(oFile().Count(), 2);  // the open file was closed first
    EXPECT_EQ(oFile().Item(1).FileName, project);
    EXPECT_EQ(oFile().Item(1).FileType, kFileProject);
    EXPECT_EQ(fs::path(oFile().Item(2).FileName).filename(), "a.bas");
    EXPECT_TRUE(fileTable().projectOpen);
    EXPECT_EQ(hlydSettings().MRU[1], project);

    ui.openAnswers.push_back(std::vector<std::string>{oFile().Item(2).FileName});
    GetFilesToProcess(0);
    ASSERT_EQ(oFile().Count(), 1);
    EXPECT_EQ(oFile().Item(1).FileType, kFileSource);
    EXPECT_FALSE(fileTable().projectOpen);
    EXPECT_EQ(fileTable().wCurrentFile, 0);  // the caller shows the one after it: the new file
}

// Whatever is open stays open until something takes its place: a Cancel at any step of the
// choice (the dialog, the check of a file, the choice of a project's members) changes nothing.
TEST_F(FileSelectionTest, CancelAtAnyStepKeepsWhatIsOpen) {
    write("a.bas");
    write("b.bas");
    std::string first = write("first.vbp", "Type=Exe\nModule=M; a.bas\n");
    std::string second = write("second.vbp", "Type=Exe\nModule=M; b.bas\n");
    ui.openAnswers.push_back(std::vector<std::string>{first});
    GetFilesToProcess(0);
    const std::vector<std::string> open = tableNames();
    ASSERT_EQ(open.size(), 2u);
    auto expectFirstStillOpen = [&](const char* step) {
        EXPECT_EQ(status(), 8) << step;
        EXPECT_EQ(tableNames(), open) << step;
        EXPECT_TRUE(fileTable().projectOpen) << step;
        ASSERT_EQ(oProjectFiles().Count(), 1) << step;
        EXPECT_EQ(oProjectFiles().Item(1).FileName, first) << step;
    };

    GetFilesToProcess(0);  // the dialog is cancelled
    expectFirstStillOpen("dialog");

    ui.openAnswers.push_back(std::vector<std::string>{(src_ / "missing.bas").string()});
    ui.answers = {MsgAnswer::Yes};  // "Do you want to cancel processing?"
    GetFilesToProcess(0);
    expectFirstStillOpen("check of the file");

    ui.openAnswers.push_back(std::vector<std::string>{second});
    test::TestViews views;
    views.projectFile = [](ProjectFileModel&) { return false; };  // the user cancels the choice
    GetFilesToProcess(0);
    expectFirstStillOpen("choice of members");

    // Source files open alone stay too when a project's members are not chosen.
    resetFileTable();
    std::string c = write("c.bas");
    oFile().Add(cFileDesc{c});
    ui.openAnswers.push_back(std::vector<std::string>{second});
    GetFilesToProcess(0);
    EXPECT_EQ(tableNames(), std::vector<std::string>{c});
    EXPECT_FALSE(fileTable().projectOpen);
    EXPECT_EQ(status(), 8);
}

TEST_F(FileSelectionTest, RecentFilePositionOpensThatFile) {
    std::string a = write("a.bas"), b = write("b.bas");
    hlydSettings().MRU[1] = a;
    hlydSettings().MRU[2] = b;

    GetFilesToProcess(2);

    EXPECT_TRUE(ui.dialogs.empty());
    EXPECT_EQ(tableNames(), std::vector<std::string>{b});
    EXPECT_EQ(hlydSettings().MRU[1], b);
    EXPECT_EQ(hlydSettings().MRU[2], a);
}

TEST_F(FileSelectionTest, FileListGivesThePositionChosen) {
    for (const char* name : {"a.bas", "b.bas"}) oFile().Add(cFileDesc{name});
    ui.listAnswer = 1;
    EXPECT_EQ(frmFileList(), 2);
    EXPECT_EQ(ui.listed, (std::vector<std::string>{"a.bas", "b.bas"}));
    ui.listAnswer.reset();
    EXPECT_EQ(frmFileList(), 0);
}

}  // namespace
}  // namespace hlyd
