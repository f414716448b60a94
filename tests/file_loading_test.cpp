// Loading a file of the table: the procedure list, the token elements, showing and closing
// files, the progress text, and walking the records of the loaded file.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "files/file_loading.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/status_progress.h"
#include "settings/system_queries.h"
#include "test_support.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

// Records: 1-3 declarations, 4 blank, 5-6 Paint, 7 blank, 8-10 Area, 11-13 two comments and a
// blank tied to Color [Get] at 14, 17 and 21 blanks before Let and Set, 24 blank, 25-29 Go.
const char* const kModule =
        "Attribute VB_Name = \"Shapes\"\nOption Explicit\nPrivate mColor As Long\n\n"
        "Public Sub Paint()\nEnd Sub\n\n"
        "Private Function Area(ByVal w As Long) As Long\n    Area = w * w\nEnd Function\n\n"
        "' The colour of the shape,\n' kept in mColor\n"
        "Private Property Get Color() As Long\n    Color = mColor\nEnd Property\n\n"
        "Property Let Color(ByVal c As Long)\n    mColor = c\nEnd Property\n\n"
        "Property Set Color(ByVal c As Object)\nEnd Property\n\n"
        "Sub Go()\n    x = \"abc\" ' note\nAgain:\n    GoTo Again\nEnd Sub\n";

// Records 1-4 the description, 5-6 declarations, then three procedures.
const char* const kForm =
        "VERSION 5.00\nBegin VB.Form frmMain\n   Caption = \"Main\"\nEnd\n"
        "Attribute VB_Name = \"frmMain\"\nOption Explicit\n"
        "Private Sub Form_Load()\nEnd Sub\nSub cmdX_Click()\nEnd Sub\nPublic Sub Refresh()\nEnd Sub\n";

class FileLoadingTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        ui.shown.clear();
        dir_ = fs::path(dir) / "src";
        fs::create_directories(dir_);
        MainWindowModel& w = mainWindow();
        w.enableControls = [&w] { w.controlsEnabled = true; };
        w.disableControls = [&w] { w.controlsEnabled = false; };
    }

    // Writes the file and appends it to the table; returns its position.
    std::int16_t add(const std::string& name, const std::string& text) {
        std::ofstream(dir_ / name, std::ios::binary) << text;
        oFile().Add(cFileDesc{(dir_ / name).string()});
        return static_cast<std::int16_t>(oFile().Count());
    }
    void load(const std::string& name, const std::string& text) { ProcessSelectedFile(add(name, text)); }

    std::vector<std::string> procNames() const {
        std::vector<std::string> names;
        for (const ProcEntry& p : yProc()) names.push_back(p.Name + " " + p.Type);
        return names;
    }
    const ProcEntry& proc(const std::string& name) const {
        for (const ProcEntry& p : yProc())
            if (p.Name == name) return p;
        throw std::runtime_error("no procedure " + name);
    }
    static const SourceTables& tables() { return theSourceTables(); }
    static const Record& record(std::int32_t r) { return theSourceTables().Records[r]; }
    // The element of the k-th token (from 0) of a record.
    static std::int32_t element(std::int32_t r, std::int32_t k) {
        return fileTable().TokenElements.at(record(r).FirstT + k);
    }

    fs::path dir_;
};

TEST_F(FileLoadingTest, ModuleGivesDeclarationsProceduresAndPropertyAccessors) {
    load("Shapes.bas", kModule);
    EXPECT_EQ(procNames(), (std::vector<std::string>{"<Declarations> D", "Paint S", "Area F", "Color [Get] Q",
                                                     "Color [Let] R", "Color [Set] S", "Go S"}));
    EXPECT_EQ(fileTable().sVBName, "Shapes");
    EXPECT_FALSE(fileTable().source.isOpen());

    // The comments above Color [Get] belong to it, so Area ends before them.
    EXPECT_EQ(proc("Color [Get]").FirstRecord, 11);
    EXPECT_EQ(proc("Color [Get]").FirstStatement, record(11).FirstS);
    EXPECT_EQ(proc("Area").LastRecord, 10);
    EXPECT_EQ(proc("Area").LastStatement, record(10).LastS);
    EXPECT_EQ(proc("<Declarations>").FirstRecord, 1);
    EXPECT_EQ(proc("<Declarations>").LastRecord, 3);
    EXPECT_EQ(proc("Go").LastRecord, tables().RecordCount);
    EXPECT_EQ(proc("Go").LastStatement, tables().StatementCount);

    // What a module does not say is public.
    std::vector<bool> isPublic;
    for (const char* p : {"Paint", "Area", "Color [Get]", "Color [Let]", "Go"}) isPublic.push_back(proc(p).IsPublic);
    EXPECT_EQ(isPublic, (std::vector<bool>{true, false, false, true, true}));

    // Go: x = "abc" ' note / Again: / GoTo Again. Identifier 2, operator drawn as a keyword 3,
    // literal 4, comment 1; label 2; keyword 3, label reference 2.
    EXPECT_EQ((std::vector<std::int32_t>{element(26, 0), element(26, 1), element(26, 2), element(26, 3), element(27, 0),
                                         element(28, 0), element(28, 1)}),
              (std::vector<std::int32_t>{2, 3, 4, 1, 2, 3, 2}));
    EXPECT_EQ(fileTable().TokenElements.size(), static_cast<std::size_t>(tables().TokenCount) + 1);
}

TEST_F(FileLoadingTest, FormStartsWithItsDefinitionAndKeepsEventsPrivate) {
    load("Main.frm", kForm);
    EXPECT_EQ(procNames(), (std::vector<std::string>{"(Designer Object Definition) M", "<Declarations> D",
                                                     "Form_Load S", "cmdX_Click S", "Refresh S"}));
    EXPECT_EQ(proc("(Designer Object Definition)").FirstRecord, 1);
    EXPECT_EQ(proc("(Designer Object Definition)").LastRecord, 4);
    EXPECT_EQ(proc("<Declarations>").FirstRecord, 5);
    EXPECT_EQ(fileTable().sVBName, "frmMain");

    EXPECT_NE(proc("Form_Load").IsEvent, 0);
    EXPECT_EQ(proc("cmdX_Click").IsEvent, 0);  // "Click" is no keyword
    EXPECT_FALSE(proc("Form_Load").IsPublic);
    EXPECT_FALSE(proc("cmdX_Click").IsPublic);  // in a form, unsaid means private
    EXPECT_TRUE(proc("Refresh").IsPublic);
}

TEST_F(FileLoadingTest, EmptyFileAndSecondSelectionOfTheSameFile) {
    std::int16_t empty = add("Empty.bas", "");
    HlydFLProcessSelectedFile(empty);
    ASSERT_EQ(yProc().size(), 1u);
    EXPECT_TRUE(yProc()[0].Name.empty() || yProc()[0].Name == "<Declarations>");
    EXPECT_EQ(tables().Records[tables().RecordCount].FirstT, 0);
    EXPECT_EQ(mainWindow().cboProc.ListCount(), 1);
    EXPECT_FALSE(fileTable().source.isOpen());

    // The file changed on disk after it was first read: selecting it again reads it again.
    std::int16_t module = add("Shapes.bas", "Option Explicit\nSub One()\nEnd Sub\n");
    ProcessSelectedFile(module);
    ASSERT_EQ(yProc().size(), 2u);
    std::ofstream(oFile().Item(module).FileName, std::ios::binary) << kModule;
    ProcessSelectedFile(module);
    EXPECT_EQ(yProc().size(), 7u);
    EXPECT_EQ(fileTable().wCurrentFile, module);
}

TEST_F(FileLoadingTest, ShowingFillsTheSortedListAndTheCaption) {
    std::int16_t which = add("Shapes.bas", kModule);
    HlydFLProcessSelectedFile(which);
    const SortedListModel& list = mainWindow().cboProc;
    EXPECT_EQ(list.items(), (std::vector<std::string>{"<Declarations>", "Area", "Color [Get]", "Color [Let]",
                                                      "Color [Set]", "Go", "Paint"}));
    for (const ProcEntry& p : yProc()) EXPECT_EQ(list.List(p.ListIndex), p.Name);
    EXPECT_EQ(mainWindow().Caption, "Halyard - Shapes.bas");
    EXPECT_EQ(fileTable().wCurrentFile, which);
}

TEST_F(FileLoadingTest, ClosingFilesAndTheWindowMenu) {
    for (int i = 1; i <= 9; ++i) add("F" + std::to_string(i) + ".bas", "Sub S" + std::to_string(i) + "()\nEnd Sub\n");
    rebuildWindowMenu();
    const std::vector<std::string>& menu = mainWindow().windowMenu;
    ASSERT_EQ(menu.size(), 7u);
    EXPECT_EQ(menu.front(), "1. " + (dir_ / "F9.bas").string());
    EXPECT_EQ(menu.back(), "7. " + (dir_ / "F3.bas").string());

    // Closing the shown file shows the one that takes its place.
    HlydFLProcessSelectedFile(9);
    cHLYD::CloseFile();
    EXPECT_EQ(oFile().Count(), 8);
    EXPECT_EQ(mainWindow().Caption, "Halyard - F8.bas");
    EXPECT_EQ(menu.front(), "1. " + (dir_ / "F8.bas").string());

    cHLYD::CloseFiles();
    EXPECT_EQ(oFile().Count(), 0);
    EXPECT_EQ(fileTable().wCurrentFile, 0);
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(mainWindow().Caption, "Halyard");

    // Closing the last file one by one ends the same way.
    HlydFLProcessSelectedFile(add("Only.bas", kModule));
    cHLYD::CloseFile();
    EXPECT_EQ(fileTable().wCurrentFile, 0);
    EXPECT_EQ(mainWindow().cboProc.ListCount(), 0);
    EXPECT_EQ(mainWindow().Caption, "Halyard");
    EXPECT_TRUE(mainWindow().controlsEnabled);
}

TEST_F(FileLoadingTest, StatusTextOnlyEveryTenthLineGroupedAsTheLocaleSays) {
    const LocaleTexts before = localeTexts();
    localeTexts().DigitGroup = ",";
    StatusBarUpdate(true, 1230);
    EXPECT_EQ(mainWindow().lblStatus, " Lines parsed: 1,230 ");
    StatusBarUpdate(true, 1231);
    EXPECT_EQ(mainWindow().lblStatus, " Lines parsed: 1,230 ");
    localeTexts().DigitGroup = ".";
    StatusBarUpdate(false, 1234560);
    EXPECT_EQ(mainWindow().lblStatus, " Lines output: 1.234.560 ");
    localeTexts() = before;
}

TEST_F(FileLoadingTest, BadIndexRaisesAndAnUnopenableFileLeavesAStatus) {
    std::int16_t which = add("Shapes.bas", kModule);
    try {
        ProcessSelectedFile(static_cast<std::int16_t>(which + 1));
        FAIL() << "an index beyond the table must raise";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, kInternalError);
        EXPECT_EQ(e.Source, "ProcessSelectedFile");
        EXPECT_EQ(theDebug().BabStatus, -6);
    }

    // Listed and loaded, then deleted: the next load leaves empty tables and says why.
    theDebug() = cDebug{};
    ProcessSelectedFile(which);
    fs::remove(oFile().Item(which).FileName);
    ProcessSelectedFile(which);
    EXPECT_EQ(theDebug().BabStatus, kStatusFileUnreadable);
    EXPECT_EQ(theDebug().BabStatusDetail, 53);
    EXPECT_FALSE(fileTable().openFailure.empty());
    EXPECT_EQ(theSourceTables().RecordCount, 0);
    EXPECT_EQ(yProc().size(), 1u);
    EXPECT_EQ(oFile().Count(), 1);  // the one who shows it decides

    // Replaced by a FIFO: refused at once for what it is, not waited on nor called missing.
    ASSERT_EQ(::mkfifo(oFile().Item(which).FileName.c_str(), 0644), 0);
    ProcessSelectedFile(which);
    EXPECT_EQ(theDebug().BabStatusDetail, 75);
    EXPECT_EQ(fileTable().openFailure, "Not a regular file");
    fs::remove(oFile().Item(which).FileName);
}

// Between listing and showing a file may vanish: the user is told its name, it is closed, and
// the window goes on with the file that takes its place.
TEST_F(FileLoadingTest, VanishedFileIsNamedAndClosedAndTheOthersGoOn) {
    add("A.bas", "Sub A()\nEnd Sub\n");
    std::int16_t gone = add("Gone.bas", kModule);
    add("C.bas", "Sub C()\nEnd Sub\n");
    const std::string goneName = oFile().Item(gone).FileName;
    fs::remove(goneName);
    HlydFLProcessSelectedFile(gone);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(goneName), std::string::npos) << ui.shown[0].text;
    EXPECT_EQ(oFile().Count(), 2);
    EXPECT_EQ(mainWindow().Caption, "Halyard - C.bas");
    EXPECT_EQ(fileTable().wCurrentFile, 2);
    EXPECT_EQ(mainWindow().windowMenu.size(), 2u);
    EXPECT_FALSE(ui.busy);

    // The last file going too leaves an empty window, and every name was told.
    fs::remove(oFile().Item(1).FileName);
    fs::remove(oFile().Item(2).FileName);
    HlydFLProcessSelectedFile(2);
    EXPECT_EQ(ui.shown.size(), 3u);
    EXPECT_EQ(oFile().Count(), 0);
    EXPECT_EQ(fileTable().wCurrentFile, 0);
    EXPECT_EQ(mainWindow().Caption, "Halyard");
}

TEST_F(FileLoadingTest, NavigationOverTheLoadedRecords) {
    load("Shapes.bas", kModule);
    const std::int32_t count = tables().RecordCount;
    std::string caption = "unchanged";
    std::int32_t r = -1;
    HlydCFGetRecord(r, caption);
    EXPECT_EQ(r, count);
    EXPECT_EQ(record(r).FirstT, 0);  // the end-of-file record

    r = count + 25;
    HlydCFGetRecord(r, caption);
    EXPECT_EQ(caption, "unchanged");
    r = count + 26;
    HlydCFGetRecord(r, caption);
    EXPECT_EQ(caption, "Line:" + std::to_string(count));

    std::int32_t which = -1;
    HlydPCGetAssociatedProc(2, which);
    EXPECT_EQ(which, 0);
    HlydPCGetAssociatedProc(12, which);  // a comment tied to Color [Get]
    EXPECT_EQ(yProc()[which].Name, "Color [Get]");
    HlydPCGetAssociatedProc(count, which);
    EXPECT_EQ(which, static_cast<std::int32_t>(yProc().size() - 1));

    r = 25;  // Sub Go, the last procedure
    HlydPCGetNext(r);
    EXPECT_EQ(r, count);
    EXPECT_TRUE(mainWindow().controlsEnabled);

    // A cancelled run is told through the status only.
    navigation().runState = kRunCancelled;
    r = 3;
    HlydCFGetRecord(r, caption);
    EXPECT_EQ(theDebug().BabStatus, 8);
}

}  // namespace
}  // namespace hlyd
