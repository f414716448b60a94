// Printing from the window with a project group on screen: the Print dialog's OK puts every
// member on the built-in PDF printer, read back with poppler's tools; the status bar then says
// what was printed where.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <memory>

#include "files/file_table.h"
#include "files/main_window_model.h"
#include "platform/qt/qt_printer_system.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "settings/settings_store.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

bool havePoppler() { return std::system("command -v pdftotext >/dev/null 2>&1") == 0; }

class ProjectPrintTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        HlydSettings& s = hlydSettings();
        s.SaveHYInfo = false;
        s.TableOfContents = false;
        s.ProcContentsPrint = false;
        s.PaperSize = 1;  // the pages' length must not follow the machine's locale
        s.CurrentPrinter = kPdfPrinterName;
        setPrinterSystem(&pdfPrinters);
        InitPrinter();
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        setPrinterSystem(nullptr);
        ProgramTest::TearDown();
    }
    std::string write(const std::string& name, const std::string& text) {
        fs::path path = fs::path(dir) / "Group" / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }
    // Two projects of one module each, in a group.
    std::string sampleGroup() {
        write("One.bas", "Attribute VB_Name = \"modOne\"\nSub FirstMemberSub()\nEnd Sub\n");
        write("Two.bas", "Attribute VB_Name = \"modTwo\"\nSub SecondMemberSub()\nEnd Sub\n");
        write("One.vbp", "Type=Exe\nModule=modOne; One.bas\n");
        write("Two.vbp", "Type=Exe\nModule=modTwo; Two.bas\n");
        return write("Both.vbg", "VBGROUP 5.0\nStartupProject=One.vbp\nProject=Two.vbp\n");
    }
    // Runs `user` on the modal dialog that `command` shows.
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
    void openGroup() {
        ui.openAnswers.push_back(std::vector<std::string>{sampleGroup()});
        withDialog([](QWidget* form) { form->findChild<QPushButton*>("cmdOK")->click(); }, kMnuFilOpen);
        ASSERT_GE(oFile().Count(), 5);
        ASSERT_NE(oFile().Item(fileTable().wCurrentFile).FileType, kFileSource);
    }

    QtPrinterSystem pdfPrinters;
    std::unique_ptr<HlydWindow> window;
};

TEST_F(ProjectPrintTest, AGroupOnScreenPrintsEveryMemberWithOneOk) {
    if (!havePoppler()) GTEST_SKIP() << "poppler-utils is not installed: the PDF cannot be read back";
    openGroup();
    std::string pdf = dir + "/Both.pdf";
    ui.saveAnswer = pdf;
    bool allChecked = false, procsEnabled = true;
    std::string selection;
    withDialog(
            [&](QWidget* form) {
                allChecked = form->findChild<QCheckBox*>("chkAll0")->isChecked();
                procsEnabled = form->findChild<QRadioButton*>("optSelectedProcedures1")->isEnabled();
                selection = form->findChild<QLabel*>("lblProcs")->text().toStdString();
                form->findChild<QPushButton*>("cmdOK")->click();
            },
            kMnuFilPrint);
    EXPECT_TRUE(allChecked);
    EXPECT_FALSE(procsEnabled);  // a group has no procedures of its own
    EXPECT_EQ(selection, "All files selected");
    std::string text = test::run("pdftotext -layout '" + pdf + "' -");
    for (const char* member : {"One.vbp", "Two.vbp", "FirstMemberSub", "SecondMemberSub"})
        EXPECT_NE(text.find(member), std::string::npos) << member << " is missing from\n" << text;
    EXPECT_EQ(mainWindow().lblStatus.rfind("Printed ", 0), 0u) << mainWindow().lblStatus;
    EXPECT_NE(mainWindow().lblStatus.find(" pages to " + pdf), std::string::npos) << mainWindow().lblStatus;
}

// Current File still prints the group's own lines and nothing of its members.
TEST_F(ProjectPrintTest, CurrentFilePrintsTheGroupListingAlone) {
    if (!havePoppler()) GTEST_SKIP() << "poppler-utils is not installed: the PDF cannot be read back";
    openGroup();
    std::string pdf = dir + "/Listing.pdf";
    ui.saveAnswer = pdf;
    withDialog(
            [](QWidget* form) {
                form->findChild<QCheckBox*>("chkCurrent")->click();
                form->findChild<QPushButton*>("cmdOK")->click();
            },
            kMnuFilPrint);
    std::string text = test::run("pdftotext -layout '" + pdf + "' -");
    EXPECT_NE(text.find("Two.vbp"), std::string::npos) << text;
    EXPECT_EQ(text.find("SecondMemberSub"), std::string::npos) << text;
}

}  // namespace
}  // namespace hlyd
