// Projects and groups: the lines of a project file, its members found (also when named the
// Windows way), checked and chosen, and what ends up in the file table.
#include <filesystem>
#include <fstream>
#include <ostream>
#include <tuple>

#include "base/c_debug.h"
#include "files/file_table.h"
#include "files/project_file.h"
#include "shell/project_choice.h"
#include "files/project_listing.h"
#include "platform/os.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

// Works the Project File dialog as a user would, and says Yes to the one question it is told of.
class ChooserUi : public test::ScriptedUi {
public:
    MsgAnswer messageBox(const MessageBoxRequest& request) override {
        MsgAnswer a = ScriptedUi::messageBox(request);
        return !yesTo.empty() && request.text.find(yesTo) != std::string::npos ? MsgAnswer::Yes : a;
    }
    // Unchecks the members whose file names hold `uncheck`, then OK (or Cancel).
    bool choose(ProjectFileModel& m) {
        ++asked;
        caption = m.Caption;
        offered.clear();
        for (int n = 1; n <= m.Outline.NodeCount(); ++n) {
            const OutlineNode& node = m.Outline.Node(n);
            if (!node.IsFile) continue;
            const std::string& file =
                    oProjectFiles().Item(projectOfData(node.Data)).line(lineOfData(node.Data)).WholeFile;
            if (!uncheck.empty() && file.find(uncheck) != std::string::npos && node.Checked) m.Outline.OutlineClick(n);
            offered.emplace_back(file, node.Checked);
        }
        return !cancel && cmdOK_Click(m);
    }
    int asked = 0;
    bool cancel = false;
    std::string uncheck;
    std::string yesTo;
    std::string caption;
    std::vector<std::pair<std::string, bool>> offered;  // member files and their marks
};

// Lines 2 to 6 name a member of each kind, line 7 one that is missing.
const char* const kSampleProject =
        "Type=Exe\nForm=MainForm.frm\nModule=Utils; Utils.bas\nClass=Shape; Shape.cls\nUserControl=Dial.ctl\n"
        "PropertyPage=Page1.pag\nModule=Gone; Gone.bas\nStartup=\"frmMain\"\nName=\"Sample\"\n";

class ProjectTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        setUi(&chooser);
        views.projectFile = [this](ProjectFileModel& m) { return chooser.choose(m); };
        dir_ = fs::path(dir) / "src";
    }

    std::string write(const std::string& relative, const std::string& text) {
        fs::path path = dir_ / relative;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }
    void writeSampleMembers(const std::string& sub) {
        write(sub + "MainForm.frm", "VERSION 5.00\nBegin VB.Form frmMain\n   Caption = \"Main\"\nEnd\n");
        write(sub + "Utils.bas", "Attribute VB_Name = \"Utils\"\nOption Explicit\n");
        write(sub + "Shape.cls", "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\nEND\nAttribute VB_Name = \"Shape\"\n");
        write(sub + "Dial.ctl", "VERSION 5.00\nBegin VB.UserControl Dial\nEnd\n");
        write(sub + "Page1.pag", "VERSION 5.00\nBegin VB.PropertyPage DialPage\nEnd\n");
    }
    void list(const std::string& project) { PFParseFile({cFileDesc{project, kFileProject}}); }

    bool inFileTable(const std::string& part) const {
        for (const cFileDesc& d : oFile())
            if (d.FileName.find(part) != std::string::npos) return true;
        return false;
    }

    ChooserUi chooser;
    test::TestViews views;
    fs::path dir_;
};

TEST_F(ProjectTest, Vb6ProjectWithEveryKindOfMemberAndOneMissing) {
    writeSampleMembers("");
    std::string vbp = write("Sample.vbp", kSampleProject);
    list(vbp);

    ASSERT_EQ(oProjectFiles().Count(), 1);
    cProjectFile& p = oProjectFiles().Item(1);
    EXPECT_EQ(std::tie(p.Records, p.FormCount, p.ClassCount, p.ModuleCount), std::make_tuple(9, 3, 1, 1));
    EXPECT_EQ(std::vector<std::int16_t>(p.Forms.begin() + 1, p.Forms.begin() + 4),
              (std::vector<std::int16_t>{2, 5, 6}));
    EXPECT_EQ(p.Classes[1], 4);
    EXPECT_EQ(p.Modules[1], 3);
    // The names of form-like members come from their Begin line, not from the file name.
    std::vector<std::string> names;
    for (int i = 2; i <= 6; ++i) names.push_back(p.line(i).VBName);
    EXPECT_EQ(names, (std::vector<std::string>{"frmMain", "Utils", "Shape", "Dial", "DialPage"}));
    EXPECT_EQ(p.line(6).FileType, kLinePropertyPage);
    EXPECT_TRUE(fs::equivalent(p.line(2).WholeFile, dir_ / "MainForm.frm"));
    EXPECT_EQ(p.line(7).FileType, kLineNone);
    EXPECT_TRUE(p.line(7).SyntaxError);
    EXPECT_FALSE(p.line(7).Key.has_value());

    ASSERT_EQ(chooser.shown.size(), 1u);
    EXPECT_EQ(chooser.shown[0].text,
              "For the project file " + vbp + "\n1 files were not found and\n5 files were found.");
    EXPECT_EQ(theDebug().BabStatus, 0);
    EXPECT_EQ(chooser.asked, 1);
    EXPECT_EQ(chooser.caption, "Project File - " + vbp);

    ASSERT_EQ(oFile().Count(), 6);
    EXPECT_EQ(oFile().Item(1).FileName, vbp);
    EXPECT_EQ(oFile().Item(1).FileType, kFileProject);
    for (int i = 2; i <= 6; ++i) {
        EXPECT_EQ(oFile().Item(i).FileType, kFileSource);
        EXPECT_TRUE(oFile().Item(i).IsSelected);
        EXPECT_EQ(oFile().Item(i).WhichProject, 1);
    }
    EXPECT_FALSE(inFileTable("Gone.bas"));
}

TEST_F(ProjectTest, GroupOfTwoProjects) {
    write("One/One.vbp", "Type=Exe\nModule=A; A.bas\n");
    write("One/A.bas", "Attribute VB_Name = \"A\"\n");
    write("Two/Two.vbp", "Type=Exe\nModule=B; B.bas\n");
    write("Two/B.bas", "Attribute VB_Name = \"B\"\n");
    std::string vbg =
            write("Pair.vbg", "VBGROUP 5.0\nStartupProject=One\\One.vbp\nProject=two\\TWO.vbp\nno equals sign here\n");
    list(vbg);

    EXPECT_TRUE(chooser.shown.empty());
    ASSERT_EQ(oProjectFiles().Count(), 3);  // the group and its two projects
    int groups = 0;
    for (int i = 1; i <= 3; ++i) groups += oProjectFiles().Item(i).FileType == 0;
    EXPECT_EQ(groups, 1);

    ASSERT_EQ(oFile().Count(), 5);
    const cFileDesc& group = oFile().Item(1);
    EXPECT_EQ(group.FileName, vbg);
    EXPECT_EQ(group.FileType, kFileGroup);
    EXPECT_TRUE(group.IsSelected);
    EXPECT_EQ(oFile().Item(2).FileType, kFileProject);
    EXPECT_TRUE(fs::equivalent(oFile().Item(3).FileName, dir_ / "One/A.bas"));
    EXPECT_EQ(oFile().Item(4).FileType, kFileProject);
    EXPECT_TRUE(fs::equivalent(oFile().Item(5).FileName, dir_ / "Two/B.bas"));

    // Cancelling the choice adds nothing, not even the group's own entry, and keeps the listing.
    resetFileTable();
    chooser.cancel = true;
    list(vbg);
    EXPECT_EQ(oFile().Count(), 0);
    EXPECT_EQ(oProjectFiles().Count(), 3);
}

TEST_F(ProjectTest, BareNameWithoutExtensionMatchesEveryList) {
    cProjectFile project;
    cProjectLine line;
    line.AsRecord = "README";
    project.ParseProjectRecord(line, ".FRM.", ".BAS.");
    EXPECT_EQ(line.KeyWord, -34);
    EXPECT_EQ(line.FileType, kLineModule);
    EXPECT_EQ(line.VBName, "README");
    EXPECT_EQ(project.ObjectCount, 1);
}

TEST_F(ProjectTest, OldMakProjectNamesItsMembersBare) {
    write("FORM1.FRM", "VERSION 2.00\nBegin Form Form1\nEnd\n");
    write("MODULE1.BAS", "Option Explicit\n");
    list(write("OLD.MAK", "FORM1.FRM\nMODULE1.BAS\nGRID.VBX\nProjWinSize=152,402,248,215\nProjWinShow=2\n"));

    EXPECT_TRUE(chooser.shown.empty());
    ASSERT_EQ(oProjectFiles().Count(), 1);
    cProjectFile& p = oProjectFiles().Item(1);
    EXPECT_EQ(p.line(1).KeyWord, -24);
    EXPECT_EQ(p.line(1).VBName, "Form1");
    EXPECT_EQ(p.line(2).KeyWord, -31);
    EXPECT_EQ(p.line(2).VBName, "MODULE1");
    EXPECT_EQ(p.line(3).KeyWord, -34);
    EXPECT_EQ(std::tie(p.ObjectCount, p.FormCount, p.ModuleCount), std::make_tuple(1, 1, 1));
    EXPECT_EQ(oFile().Count(), 3);
}

TEST_F(ProjectTest, WindowsNamedMembersResolveToTheRealFiles) {
    write("app/forms/Main.frm", "VERSION 5.00\nBegin VB.Form frmMain\nEnd\n");
    write("shared/Utils.bas", "Attribute VB_Name = \"Utils\"\n");
    write("app/Shape.cls", "VERSION 1.0 CLASS\nAttribute VB_Name = \"Shape\"\n");
    list(write(
            "app/App.vbp",
            "Type=Exe\nForm=Forms\\MAIN.FRM\nModule=Utils; ..\\Shared\\UTILS.BAS\nClass=Shape; C:\\Projects\\App\\Shape.cls\n"));

    EXPECT_TRUE(chooser.shown.empty()) << chooser.shown[0].text;
    cProjectFile& p = oProjectFiles().Item(1);
    EXPECT_EQ(p.FormCount + p.ModuleCount + p.ClassCount, 3);
    EXPECT_TRUE(fs::equivalent(p.line(2).WholeFile, dir_ / "app/forms/Main.frm"));
    EXPECT_EQ(p.line(2).VBName, "frmMain");
    EXPECT_TRUE(fs::equivalent(p.line(3).WholeFile, dir_ / "shared/Utils.bas"));
    EXPECT_TRUE(fs::equivalent(p.line(4).WholeFile, dir_ / "app/Shape.cls"));
    ASSERT_EQ(oFile().Count(), 4);
    for (int i = 2; i <= 4; ++i) EXPECT_TRUE(fs::exists(oFile().Item(i).FileName)) << oFile().Item(i).FileName;
}

TEST_F(ProjectTest, ProjectNamedRelativelyStillMendsTheCase) {
    write("rel/Lower.bas", "Attribute VB_Name = \"Lower\"\n");
    write("rel/Rel.vbp", "Type=Exe\nModule=Lower; lower.bas\n");
    fs::path before = fs::current_path();
    fs::current_path(dir_ / "rel");
    list("Rel.vbp");
    fs::current_path(before);
    EXPECT_TRUE(chooser.shown.empty()) << chooser.shown[0].text;
    EXPECT_EQ(oProjectFiles().Item(1).line(2).WholeFile, "Lower.bas");
}

// Each folder is listed once for the whole read, however many members are looked for in it.
TEST_F(ProjectTest, MissingMembersListTheirFolderOnce) {
    std::string lines = "Type=Exe\n";
    for (int i = 0; i < 300; ++i) {
        std::string n = std::to_string(i);
        write("big/Code/Here" + n + ".bas", "Attribute VB_Name = \"Here" + n + "\"\n");
        lines += "Module=M" + n + "; CODE\\Gone" + n + ".bas\n";
    }
    std::uint64_t before = os::directoryListingsRead();
    list(write("big/Big.vbp", lines));
    EXPECT_EQ(theDebug().BabStatus, 19);
    EXPECT_LE(os::directoryListingsRead() - before, 2u);
}

TEST_F(ProjectTest, BinaryFormIsOnlyCountedInTheSummary) {
    write("bin/Old.frm", std::string("VERSION 2.00\0\0\0 Begin Form Old\n", 32));
    write("bin/Utils.bas", "Attribute VB_Name = \"Utils\"\n");
    list(write("bin/Bin.vbp", "Type=Exe\nForm=Old.frm\nModule=Utils; Utils.bas\n"));

    ASSERT_EQ(chooser.shown.size(), 1u);
    EXPECT_EQ(chooser.shown[0].text.rfind("1 Code/Form Files in the Project File ", 0), 0u) << chooser.shown[0].text;
    EXPECT_EQ(oProjectFiles().Item(1).line(2).FileType, kLineNone);
    // The binary form stays in the tree, unchecked, and cannot be chosen.
    int binaryOffered = 0;
    for (const auto& [file, checked] : chooser.offered)
        if (file.find("Old.frm") != std::string::npos) binaryOffered += checked ? 10 : 1;
    EXPECT_EQ(binaryOffered, 1);
    EXPECT_FALSE(inFileTable("Old.frm"));
    EXPECT_EQ(oFile().Count(), 2);
}

TEST_F(ProjectTest, AllMembersMissingStopsBeforeTheChoice) {
    std::string vbp = write("none/None.vbp", "Type=Exe\nForm=A.frm\nModule=B; B.bas\n");
    list(vbp);
    EXPECT_EQ(theDebug().BabStatus, 19);
    EXPECT_EQ(chooser.asked, 0);
    ASSERT_EQ(chooser.shown.size(), 1u);
    EXPECT_EQ(chooser.shown[0].text,
              "For the project file " + vbp +
                      "\n2 files were not found and\n0 files were found.\n\nNo further processing will occur.");
    EXPECT_EQ(oFile().Count(), 0);
}

TEST_F(ProjectTest, UncheckedMemberStaysOutAndTheProjectLeads) {
    writeSampleMembers("");
    write("Gone.bas", "Attribute VB_Name = \"Gone\"\n");
    chooser.uncheck = "Utils.bas";
    list(write("Sample.vbp", kSampleProject));
    ASSERT_EQ(oFile().Count(), 6);
    EXPECT_EQ(oFile().Item(1).FileType, kFileProject);
    EXPECT_FALSE(inFileTable("Utils.bas"));
    EXPECT_TRUE(inFileTable("Gone.bas"));
}

TEST_F(ProjectTest, MissingFileMayCancelTheValidation) {
    std::string missing = (dir_ / "Missing.bas").string();
    std::vector<std::string> names{"", missing, write("Here.bas", "Option Explicit\n")};
    chooser.yesTo = "Do you want to cancel processing?";
    VBFileValidate(names, true);
    EXPECT_EQ(theDebug().BabStatus, 8);
    EXPECT_TRUE(names[1].empty());
    const MessageBoxRequest& question = chooser.shown.back();
    EXPECT_EQ(question.buttons, MsgButtons::YesNo);
    EXPECT_EQ(question.defaultButton, 2);
    EXPECT_NE(question.text.find("File: " + missing + "\nWas Not Found\n\n"), std::string::npos);
}

TEST_F(ProjectTest, GroupsThatListThemselvesAreWalkedOnce) {
    write("One/One.vbp", "Type=Exe\nModule=A; A.bas\n");
    write("One/A.bas", "Attribute VB_Name = \"A\"\n");
    std::string self = write("Self.vbg", "VBGROUP 5.0\nProject=Self.vbg\nProject=One\\One.vbp\n");
    list(self);
    ASSERT_EQ(chooser.shown.size(), 1u);
    EXPECT_EQ(chooser.shown[0].text, "The project group " + self + " is already being read; it is skipped.");
    EXPECT_EQ(oProjectFiles().Count(), 2);  // the group and One
    EXPECT_TRUE(inFileTable("A.bas"));

    // Two groups that name each other: each is read once.
    resetFileTable();
    chooser.shown.clear();
    write("Left.vbg", "VBGROUP 5.0\nProject=Right.vbg\n");
    write("Right.vbg", "VBGROUP 5.0\nProject=Left.vbg\nProject=One\\One.vbp\n");
    list((dir_ / "Left.vbg").string());
    ASSERT_EQ(chooser.shown.size(), 1u);
    EXPECT_EQ(oProjectFiles().Count(), 3);
}

TEST_F(ProjectTest, ProjectPastThe16BitCountStopsWithOverflow) {
    write("big/A.bas", "Attribute VB_Name = \"A\"\n");
    std::string text = "Type=Exe\n";
    for (int n = 2; n <= 32768; ++n) text += "Module=A; A.bas\n";
    std::string vbp = write("big/Big.vbp", text);
    list(vbp);
    ASSERT_EQ(chooser.shown.size(), 2u);
    EXPECT_EQ(chooser.shown[0].text, "The following error occurred reading record\non file " + vbp +
                                             ".\nRemainder of file not processed.\n\nOverflow at line 32768\n"
                                             "Last line read: Module=A; A.bas");
    EXPECT_EQ(chooser.shown[0].icon, MsgIcon::Critical);
    EXPECT_EQ(chooser.shown[1].text, "Error occurred reading " + vbp + ".");
    EXPECT_EQ(chooser.asked, 0);
    EXPECT_EQ(oProjectFiles().Count(), 0);
}

TEST_F(ProjectTest, GroupReadCountsBinaryMembersOverAllProjectsAndStopsAtAnUnreadableOne) {
    const std::string binaryForm("VERSION 2.00\0\0\0 Begin Form Old\n", 32);
    write("One/Old.frm", binaryForm);
    write("One/One.vbp", "Type=Exe\nForm=Old.frm\n");
    write("Two/Old.frm", binaryForm);
    write("Two/Two.vbp", "Type=Exe\nForm=Old.frm\n");
    list(write("Pair.vbg", "VBGROUP 5.0\nProject=One\\One.vbp\nProject=Two\\Two.vbp\n"));
    ASSERT_EQ(chooser.shown.size(), 3u);
    EXPECT_EQ(chooser.shown[0].text.rfind("1 Code/Form Files", 0), 0u);
    EXPECT_EQ(chooser.shown[1].text.rfind("2 Code/Form Files", 0), 0u);
    EXPECT_EQ(chooser.shown[2].text, "No files have been selected\nCannot proceed");  // no member left to choose

    // A project that cannot be opened is told as the group is walked, before any other project is read.
    resetFileTable();
    chooser.shown.clear();
    chooser.asked = 0;
    chooser.answers = {MsgAnswer::Cancel};
    std::string missing = (dir_ / "Gone/Gone.vbp").string();
    list(write("Broken.vbg", "VBGROUP 5.0\nProject=One\\One.vbp\nProject=Gone\\Gone.vbp\n"));
    ASSERT_EQ(chooser.shown.size(), 2u);
    EXPECT_EQ(chooser.shown[0].text, "The following error occurred processing " + missing + ".\n\nFile not found");
    EXPECT_EQ(chooser.shown[1].text, "Error occurred reading " + missing + ".");
    EXPECT_EQ(chooser.asked, 0);
}

// One line of a project file as it is read: its keyword's number, the kind of line, whether it is
// faulty, and the name, file and values taken from it.
struct LineCase {
    const char* name;
    std::string text;
    std::string read;
};

void PrintTo(const LineCase& c, std::ostream* os) { *os << c.text; }

std::string readLine(const std::string& text) {
    cProjectFile project;
    cProjectLine line;
    line.AsRecord = text;
    project.ParseProjectRecord(line, ".FRM.CTL.PAG.", ".BAS.CLS.");
    std::string read = std::to_string(line.KeyWord) + " type " + std::to_string(line.FileType) +
                       (line.SyntaxError ? " faulty" : " sound") + " name=" + line.VBName + " file=" + line.FileName +
                       " values(" + std::to_string(line.ValueCount) + ")";
    for (const std::string& value : line.Value) read += "|" + value;
    return read;
}

class ProjectLineTest : public ::testing::TestWithParam<LineCase> {};

TEST_P(ProjectLineTest, IsRead) { EXPECT_EQ(readLine(GetParam().text), GetParam().read); }

INSTANTIATE_TEST_SUITE_P(
        Lines, ProjectLineTest,
        ::testing::Values(
                LineCase{"Form", "Form=Form1.frm", "24 type 1 sound name= file=Form1.frm values(1)|Form1.frm"},
                LineCase{"Module", "Module=Module1; Module1.bas",
                         "31 type 2 sound name=Module1 file=Module1.bas values(2)|Module1|Module1.bas"},
                // the name must end in ";"
                LineCase{"ModuleWithoutSemicolon", "Module=Module1 Module1.bas",
                         "31 type 2 faulty name= file= values(2)|Module1|Module1.bas"},
                LineCase{"QuotedForm", "Form=\"Form1.frm\"", "24 type 1 faulty name= file= values(0)"},
                LineCase{
                        "Object", "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX",
                        "34 type 9 sound name= file=2.0 values(3)|{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}|2.0|0; MSCOMCTL.OCX"},
                LineCase{"Reference", "Reference=*\\G{0}#2.0#0#C:\\Windows\\stdole2.tlb#OLE Automation",
                         "42 type 8 sound name=OLE Automation file=C:\\Windows\\stdole2.tlb "
                         "values(5)|*\\G{0}|2.0|0|C:\\Windows\\stdole2.tlb|OLE Automation"},
                LineCase{
                        "ReferenceOfSixParts", "Reference=*\\G{0}#2.0#0#x.tlb#Name#extra",
                        "42 type 8 faulty name=Name file=x.tlb values(5)|*\\G{0}|2.0|0|x.tlb|Name"},  // five values at most
                LineCase{"SevenValues", "ProjWinSize=1,2,3,4,5,6,7",
                         "40 type 10 faulty name= file= values(5)|1|2|3|4|5"},
                LineCase{"LoneQuote", "Name=\"",
                         "32 type 10 sound name= file= values(1)|\""},  // it begins and ends the value
                LineCase{"AfterTheLastKeyword", "VersionZeta=1", "69 type 0 sound name= file= values(1)|1"},
                LineCase{"BetweenTwoKeywords", "Formula=1",
                         "0 type 0 faulty name= file= values(0)"},  // FORM < it < HELPCONTEXTID
                LineCase{"NoKey", "=Form1.frm", "0 type 0 faulty name= file= values(0)"},
                LineCase{"Section", "[MS Transaction Server]", "0 type 0 sound name= file= values(0)"}),
        [](const ::testing::TestParamInfo<LineCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace hlyd
