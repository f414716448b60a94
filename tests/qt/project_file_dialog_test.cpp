// The Project File dialog in the window, offscreen: opened with a project, worked with the keys,
// and what its OK leaves in the file table; shown again from the Window menu.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "files/file_table.h"
#include "files/main_window_model.h"
#include "settings/settings_store.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

class ProjectFileWindowTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        hlydSettings().SaveHYInfo = false;
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        ProgramTest::TearDown();
    }
    std::string write(const std::string& name, const std::string& text) {
        fs::path path = fs::path(dir) / "Sample" / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }
    std::string sampleProject() {
        write("Main.frm", "VERSION 5.00\nBegin VB.Form frmMain\nEnd\n");
        write("Sample.bas", "Attribute VB_Name = \"modSample\"\nOption Explicit\n");
        write("Counter.cls", "VERSION 1.0 CLASS\nAttribute VB_Name = \"Counter\"\n");
        return write("Sample.vbp",
                     "Type=Exe\nForm=Main.frm\nModule=modSample; Sample.bas\nClass=Counter; Counter.cls\n");
    }
    std::vector<std::string> tableNames() const {
        std::vector<std::string> names;
        for (const cFileDesc& d : oFile()) names.push_back(fs::path(d.FileName).filename().string());
        return names;
    }
    std::string settingsText() const {
        std::ifstream in(fs::path(dir) / "HLYD.INI", std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }
    // Runs `user` on the dialog once it is up, while `command` shows it.
    void withDialog(const std::function<void(QWidget*)>& user, const std::string& command) {
        QTimer::singleShot(0, [&user] {
            QWidget* form = QApplication::activeModalWidget();
            ASSERT_NE(form, nullptr);
            user(form);
        });
        window->refreshFromModel();
        ASSERT_TRUE(window->action(command)->isEnabled());
        window->action(command)->trigger();
    }
    static QTreeWidgetItem* itemNamed(QTreeWidget* tree, const QString& start) {
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            if ((*it)->text(0).startsWith(start)) return *it;
        return nullptr;
    }
    std::unique_ptr<HlydWindow> window;
};

TEST_F(ProjectFileWindowTest, UncheckedMemberStaysClosedAndTheWindowMenuShowsTheDialogAgain) {
    std::string vbp = sampleProject();
    ui.openAnswers.push_back(std::vector<std::string>{vbp});
    std::string title, panel, tip;
    withDialog(
            [&](QWidget* form) {
                title = form->windowTitle().toStdString();
                auto* tree = form->findChild<QTreeWidget*>("picOTL");
                tip = form->findChild<QPushButton*>("cmdSelectNewer")->toolTip().toStdString();
                tree->setCurrentItem(itemNamed(tree, "modSample"));
                panel = form->findChild<QLabel*>("picFileInfo")->text().toStdString();
                QTest::keyClick(tree, Qt::Key_Space);  // unchecks the member under the cursor
                QTest::keyClick(tree, Qt::Key_Return);
            },
            kMnuFilOpen);
    EXPECT_EQ(title, "Project File - " + vbp);
    EXPECT_EQ(panel.rfind("File = Sample.bas\nDate Updated = ", 0), 0u) << panel;
    EXPECT_EQ(tip, "Select only files that have been modified since last Halyard");
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Counter.cls"}));

    // The dialog sets nothing: the settings file stays as opening the project left it.
    std::string settings = settingsText();
    EXPECT_NE(settings.find("Sample.vbp"), std::string::npos);  // the recent files
    bool wasChecked = true;
    withDialog(
            [&](QWidget* form) {
                auto* tree = form->findChild<QTreeWidget*>("picOTL");
                wasChecked = itemNamed(tree, "modSample")->checkState(0) == Qt::Checked;
                form->findChild<QPushButton*>("cmdSelectAll")->click();
                QTest::keyClick(tree, Qt::Key_Escape);
            },
            kMnuWinProjectWindow);
    EXPECT_FALSE(wasChecked);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Counter.cls"}));

    withDialog(
            [](QWidget* form) {
                form->findChild<QPushButton*>("cmdSelectAll")->click();
                form->findChild<QPushButton*>("cmdOK")->click();
            },
            kMnuWinProjectWindow);
    EXPECT_EQ(tableNames(), (std::vector<std::string>{"Sample.vbp", "Main.frm", "Sample.bas", "Counter.cls"}));
    EXPECT_EQ(settingsText(), settings);

    window->action(kMnuFilCloseAll)->trigger();
    window->refreshFromModel();
    EXPECT_FALSE(window->action(kMnuWinProjectWindow)->isEnabled());  // the form went with the project
}

}  // namespace
}  // namespace hlyd
