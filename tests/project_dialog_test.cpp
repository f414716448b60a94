// The Project File dialog without a window: the tree of a listing, its marks, dates and panel,
// and what OK hands to the file table.
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>

#include "files/file_table.h"
#include "shell/project_choice.h"
#include "files/project_file.h"
#include "files/project_listing.h"
#include "files/status_progress.h"
#include "settings/profile_file.h"
#include "settings/settings_store.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

class ProjectDialogTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        src_ = fs::path(dir) / "src";
        hlydSettings().SaveHYFile = (fs::path(dir) / "history.tmr").string();
        // The user's part: whatever `act` does, then OK until it is accepted or `act` says Cancel.
        views.projectFile = [this](ProjectFileModel& m) {
            ++shown;
            for (;;) {
                if (act && !act(m)) return false;
                if (cmdOK_Click(m)) {
                    accepted = m;
                    return true;
                }
                if (++refusals > 3) return false;
            }
        };
    }

    std::string write(const std::string& relative, const std::string& text) {
        fs::path path = src_ / relative;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }
    std::string sampleProject() {
        write("Main.frm", "VERSION 5.00\nBegin VB.Form frmMain\nEnd\n");
        write("Utils.bas", "Attribute VB_Name = \"Utils\"\n" + std::string(1500, '\'') + "\n");
        write("Shape.cls", "VERSION 1.0 CLASS\nAttribute VB_Name = \"Shape\"\n");
        return write("Sample.vbp",
                     "Type=Exe\nForm=Main.frm\nModule=Utils; Utils.bas\nClass=Shape; Shape.cls\n"
                     "Module=Gone; Gone.bas\nObject={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\n"
                     "Name=\"Sample\"\n");
    }
    void list(const std::string& project) { PFParseFile({cFileDesc{project, kFileProject}}); }
    void writeHistory(const std::string& text) {
        std::ofstream(hlydSettings().SaveHYFile, std::ios::binary) << text;
        clearProfileCache();
    }

    // The node whose text begins with `text`; 0 when there is none.
    int node(const ProjectFileModel& m, const std::string& text) const {
        for (int n = 1; n <= m.Outline.NodeCount(); ++n)
            if (m.Outline.Node(n).Text.rfind(text, 0) == 0) return n;
        return 0;
    }
    std::vector<std::string> tableNames() const {
        std::vector<std::string> names;
        for (const cFileDesc& d : oFile()) names.push_back(fs::path(d.FileName).filename().string());
        return names;
    }
    std::vector<std::string> texts(const ProjectFileModel& m) const {
        std::vector<std::string> all;
        for (int n = 1; n <= m.Outline.NodeCount(); ++n)
            all.push_back(std::to_string(m.Outline.Node(n).Level) + " " + m.Outline.Node(n).Text);
        return all;
    }

    fs::path src_;
    std::function<bool(ProjectFileModel&)> act;
    std::optional<ProjectFileModel> accepted;
    int shown = 0;
    int refusals = 0;
    test::TestViews views;
};

TEST_F(ProjectDialogTest, TreeOfAProjectWithAMissingMember) {
    std::string vbp = sampleProject();
    ProjectFileModel seen;
    act = [&seen](ProjectFileModel& m) {
        seen = m;
        return true;
    };
    list(vbp);
    ASSERT_EQ(shown, 1);
    EXPECT_EQ(seen.Caption, "Project File - " + vbp);
    EXPECT_EQ(texts(seen),
              (std::vector<std::string>{"0 Sample.vbp", "1 Forms (1)", "2 frmMain (Main.frm)", "1 Modules (2)",
                                        "2 Utils.bas", "2 Gone.bas (not available)", "1 Classes (1)", "2 Shape.cls",
                                        "1 Objects (1)", "2 MSCOMCTL.OCX"}));
    const cotlControl& o = seen.Outline;
    EXPECT_EQ(o.Node(1).Data, 1);
    EXPECT_EQ(o.Node(6).Data, 1005);  // project 1, line 5
    // The missing member stays, unchecked; the object is no file to choose.
    EXPECT_TRUE(o.Node(6).IsFile);
    EXPECT_FALSE(o.Node(6).Checked);
    EXPECT_FALSE(o.Node(10).IsFile);

    // Checked or not, the missing member adds nothing; the project's entry leads.
    ProjectFileModel all = seen;
    all.Outline.SelectAll();
    EXPECT_TRUE(all.Outline.Node(6).Checked);
    FileCollection chosen;
    EXPECT_TRUE(all.Outline.GetSelected(oProjectFiles(), chosen));
    ASSERT_EQ(chosen.Count(), 4);
    EXPECT_EQ(chosen.Item(1).FileType, kFileProject);
    EXPECT_EQ(chosen.Item(3).WhichFile, 3);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Utils.bas", "Shape.cls"}));

    // The panel: a member's file, nothing for a kind, the other lines for the project.
    EXPECT_EQ(panelOf(seen, node(seen, "Modules")).Lines.size(), 0u);
    std::vector<std::string> utils = panelOf(seen, node(seen, "Utils")).Lines;
    ASSERT_EQ(utils.size(), 3u);
    EXPECT_EQ(utils[0], "File = Utils.bas");
    EXPECT_EQ(utils[1].rfind("Date Updated = ", 0), 0u);
    EXPECT_EQ(utils[2], "Size = " + groupedNumber(1529));  // 1,529 with the locale's separator
    EXPECT_EQ(panelOf(seen, node(seen, "Gone")).Lines, std::vector<std::string>{"File = Gone.bas"});
    ProjectPanel project = panelOf(seen, 1);
    EXPECT_TRUE(project.ShowList);
    EXPECT_EQ(project.Lines, (std::vector<std::string>{"Type=Exe", "Module=Gone; Gone.bas", "Name=\"Sample\""}));
}

TEST_F(ProjectDialogTest, GroupOfTwoProjectsKeepsTheirMembersApart) {
    write("One/One.vbp", "Type=Exe\nModule=A; A.bas\n");
    write("One/A.bas", "Attribute VB_Name = \"A\"\n");
    write("Two/Two.vbp", "Type=Exe\nForm=F.frm\nModule=B; B.bas\n");
    write("Two/F.frm", "VERSION 5.00\nBegin VB.Form F\nEnd\n");
    write("Two/B.bas", "Attribute VB_Name = \"B\"\n");
    act = [this](ProjectFileModel& m) {
        EXPECT_EQ(texts(m),
                  (std::vector<std::string>{"0 Pair.vbg", "0 One.vbp", "1 Modules (1)", "2 A.bas", "0 Two.vbp",
                                            "1 Forms (1)", "2 F.frm", "1 Modules (1)", "2 B.bas"}));
        EXPECT_EQ(m.Outline.Node(4).Data, 2002);
        EXPECT_EQ(m.Outline.Node(9).Data, 3003);
        // The group's node holds the lines of the group file, as a project's holds its other lines.
        EXPECT_EQ(panelOf(m, 1).Lines.size(), 3u);
        m.Outline.OutlineClick(node(m, "F.frm"));
        return true;
    };
    list(write("Pair.vbg", "VBGROUP 5.0\nStartupProject=One\\One.vbp\nProject=Two\\Two.vbp\n"));
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Pair.vbg", "One.vbp", "A.bas", "Two.vbp", "B.bas"}));
    EXPECT_EQ(oFile().Item(5).WhichProject, 3);
    EXPECT_EQ(oFile().Item(5).WhichFile, 3);
}

TEST_F(ProjectDialogTest, DatesOfTheHistoryAndSelectUpdated) {
    std::string vbp = sampleProject();
    std::string utils = (src_ / "Utils.bas").string();
    std::string shape = (src_ / "Shape.cls").string();
    std::string ours = "[Tamarin Halyard for Visual Basic]\n" + utils + "=1/01/2020 1:00:00 PM|12/31/2099 1:00:00 PM\n";
    writeHistory(ours + shape + "=1/01/2020 1:00:00 PM\n" + "[Tamarin Glosser for Visual Basic]\n" + utils +
                 "=x|3/04/2021 9:15:00 AM\n");
    int newer = -1;
    std::vector<std::string> panel;
    act = [&](ProjectFileModel& m) {
        m.Outline.DeselectAll();
        newer = m.Outline.SelectNewer(m.Dates);
        panel = panelOf(m, node(m, "Utils")).Lines;
        return true;
    };
    list(vbp);
    // Printed after its last change: not newer. Never printed, or no printing time: newer.
    EXPECT_EQ(newer, 2);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Shape.cls"}));
    ASSERT_EQ(panel.size(), 5u);
    EXPECT_EQ(panel[3], "Last Halyard = 12/31/2099 1:00:00 PM");
    EXPECT_EQ(panel[4], "Last Gloss = 3/04/2021 9:15:00 AM");

    // Everything printed since: the box, and the marks stay as they stood.
    writeHistory(ours + (src_ / "Main.frm").string() + "=|12/31/2099 1:00:00 PM\n" + shape +
                 "=|12/31/2099 1:00:00 PM\n");
    resetFileTable();
    ui.shown.clear();
    act = [&](ProjectFileModel& m) {
        m.Outline.OutlineClick(node(m, "Utils"));  // one mark off, the others on
        newer = m.Outline.SelectNewer(m.Dates);
        return true;
    };
    list(vbp);
    EXPECT_EQ(newer, 0);
    ASSERT_EQ(ui.shown.size(), 2u);  // the missing member, then the box
    EXPECT_EQ(ui.shown[1].text, "There are no files that have been modified since the last gloss.");
    EXPECT_EQ(ui.shown[1].icon, MsgIcon::Warning);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Shape.cls"}));
}

TEST_F(ProjectDialogTest, OkWithNothingCheckedStaysUntilAMemberIsChecked) {
    std::string vbp = sampleProject();
    act = [this](ProjectFileModel& m) {
        if (refusals == 0) m.Outline.DeselectAll();
        else m.Outline.OutlineClick(node(m, "Shape"));
        return true;
    };
    list(vbp);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(refusals, 1);
    ASSERT_EQ(ui.shown.size(), 2u);  // the missing member, then the refusal
    EXPECT_EQ(ui.shown[1].text, "No files have been selected\nCannot proceed");
    EXPECT_EQ(ui.shown[1].icon, MsgIcon::Warning);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Shape.cls"}));

    // Cancel after a refusal: the file table keeps what it had.
    act = [this](ProjectFileModel& m) {
        m.Outline.DeselectAll();
        return refusals < 2;
    };
    list(vbp);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Shape.cls"}));

    // Members that are all binary: without a window nothing can be chosen, which is said.
    views.projectFile = nullptr;
    resetFileTable();
    ui.shown.clear();
    write("bin/Old.frm", std::string("VERSION 2.00\0\0\0 Begin Form Old\n", 32));
    list(write("bin/Bin.vbp", "Type=Exe\nForm=Old.frm\n"));
    ASSERT_EQ(ui.shown.size(), 2u);  // the binary member, then the refusal
    EXPECT_EQ(ui.shown[1].text, "No files have been selected\nCannot proceed");
    EXPECT_EQ(oFile().Count(), 0);
}

TEST_F(ProjectDialogTest, BranchesOpenAndCloseAndClicksToggle) {
    list(sampleProject());
    ASSERT_TRUE(accepted);
    ProjectFileModel m = *accepted;
    cotlControl& o = m.Outline;
    int utils = node(m, "Utils"), modules = node(m, "Modules");
    EXPECT_TRUE(o.IsShown(utils));
    o.OutlineCollapseAll();
    EXPECT_FALSE(o.IsShown(modules));
    o.OutlineClick(1);  // the project opens, its kinds show, their files not
    EXPECT_TRUE(o.IsShown(modules));
    EXPECT_FALSE(o.IsShown(utils));
    o.OutlineExpandAll();
    EXPECT_TRUE(o.IsShown(utils));
    o.OutlineClick(utils);
    EXPECT_FALSE(o.Node(utils).Checked);
    EXPECT_EQ(o.ParentOf(utils), modules);
}

}  // namespace
}  // namespace hlyd
