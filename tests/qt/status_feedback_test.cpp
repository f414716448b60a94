// What the window tells the user once work ends: the status bar after a print, a cancel or the
// first load, and the Print Status dialog's file name, which a long path must not push out of sight.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <optional>

#include "files/main_window_model.h"
#include "printing/print_status.h"
#include "settings/settings_store.h"
#include "dialogs/qt_application.h"
#include "shell/app_start.h"
#include "shown_window.h"
#include "test_support.h"
#include "test_views.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

class StatusFeedbackTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        bareHeadings();
        window = test::showWindow();
    }
    void TearDown() override {
        views.reset();
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    QWidget* statusDialog() const {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == "HLYDPrintStatus") return top;
        return nullptr;
    }
    std::unique_ptr<HlydWindow> window;
    std::optional<test::TestViews> views;  // over the window's
};

TEST_F(StatusFeedbackTest, ThePrintCommandEndsWithWhatItPrintedOrThatItWasCancelled) {
    showSource("module.bas", test::procedures(1, 60));
    hlydSettings().DoNotShowPrintDialog = true;
    window->action(kMnuFilPrint)->trigger();
    EXPECT_EQ(mainWindow().lblStatus, "Printed 2 pages to Recorder");
    EXPECT_EQ(window->lblStatus()->text().toStdString(), "Printed 2 pages to Recorder");

    // Cancel in the Print Status dialog drops the job.
    QWidget* status = statusDialog();
    ASSERT_NE(status, nullptr);
    auto* cancel = status->findChild<QPushButton*>("cmdCancel");
    views.emplace().statusChanged = [cancel](const std::string& text) {
        if (text.rfind("Now Printing Page 2", 0) == 0) cancel->click();
    };
    window->action(kMnuFilPrint)->trigger();
    EXPECT_EQ(mainWindow().lblStatus, "Cancelled");

    // Cancel in the Print dialog prints nothing.
    hlydSettings().DoNotShowPrintDialog = false;
    QTimer::singleShot(0, [] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        form->findChild<QPushButton*>("cmdCancel")->click();
    });
    window->action(kMnuFilPrint)->trigger();
    EXPECT_EQ(mainWindow().lblStatus, "Cancelled");
}

TEST_F(StatusFeedbackTest, ThePrintStatusDialogKeepsBothEndsOfALongPath) {
    std::string folder = "/home/someone/projects/" + std::string(120, 'x') + "/forms/";
    openPrintStatus();
    showPrintStatus(folder + "frmCustomerOrders.frm\r\n\r\nInitializing");
    auto* page = statusDialog()->findChild<QLabel*>("lblPage");
    QStringList lines = page->text().split('\n');
    closePrintStatus();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].startsWith("/home/someone/")) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].endsWith("frmCustomerOrders.frm")) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].contains(QChar(0x2026)));
    EXPECT_LE(page->fontMetrics().horizontalAdvance(lines[0]), page->width());
    EXPECT_EQ(lines[2], "Initializing");
}

class WindowedLoadTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        installWindowedRun();
    }
    void TearDown() override {
        uninstallWindowedRun();
        ConfigDirTest::TearDown();
    }
};

// The file chosen in the Open dialog at start-up loads outside any command; its progress
// ("Line:", "Lines parsed") must not stay on the status bar.
TEST_F(WindowedLoadTest, TheStatusSaysReadyOnceTheFirstFileIsLoaded) {
    std::string file = test::writeTempFile("first.bas", test::procedures(2, 30));
    ui.openAnswers.push_back(std::vector<std::string>{file});
    ASSERT_EQ(Main("/idemode"), 0);
    EXPECT_EQ(mainWindow().lblStatus, "Ready");
}

}  // namespace
}  // namespace hlyd
