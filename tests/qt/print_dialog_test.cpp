// The Print dialog in the window, offscreen: opened by its command, filled in by a user, and the
// listing out on the recording printer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <vector>

#include "dialogs/hlyd_window.h"
#include "platform/qt/image_surface.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "files/main_window_model.h"
#include "printing/print_status.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"
#include "settings/settings_store.h"
#include "shell/window_commands.h"
#include "shown_window.h"
#include "test_support.h"
#include "test_views.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

class PrintDialogWindowTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        HlydSettings& s = hlydSettings();
        s.PageNumberHow = 2;
        s.SaveHYInfo = false;
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    std::unique_ptr<HlydWindow> window;
};

TEST_F(PrintDialogWindowTest, ThePrintCommandOpensTheDialogAndPrintsWhatItSays) {
    showSource("module.bas", test::procedures(1, 60));
    sbButtonsOpen();
    window->refreshFromModel();
    ASSERT_TRUE(window->action(kMnuFilPrint)->isEnabled());
    std::string title, allFiles;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        title = form->windowTitle().toStdString();
        allFiles = form->findChild<QCheckBox*>("chkAll0")->text().toStdString();
        form->findChild<QLineEdit*>("txtPageNumberStart")->setText("3");
        emit form->findChild<QLineEdit*>("txtPageNumberStart")->textEdited("3");
        form->findChild<QPushButton*>("cmdOK")->click();
    });
    window->action(kMnuFilPrint)->trigger();
    EXPECT_EQ(title, "Print");
    EXPECT_EQ(allFiles, "&All Files");
    std::vector<PrintEvent> pages = test::eventsOf(events, PrintEvent::PageStart);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].printed, 3);
    EXPECT_TRUE(test::textPrinted(events, "X1_1"));
    EXPECT_TRUE(mainWindow().controlsEnabled);
}

// Stop in the Print Status dialog asks first, then ends the run at the next page and keeps the
// pages printed before it; the status line says so.
TEST_F(PrintDialogWindowTest, StopInThePrintStatusDialogKeepsThePagesPrinted) {
    showSource("module.bas", test::procedures(1, 300));
    hlydSettings().DoNotShowPrintDialog = true;
    ui.answers = {MsgAnswer::Yes};
    QPushButton* stop = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "HLYDPrintStatus") stop = top->findChild<QPushButton*>("cmdStop");
    ASSERT_NE(stop, nullptr);
    EXPECT_EQ(stop->text().toStdString(), "Stop");
    {
        test::TestViews views;
        views.statusChanged = [stop](const std::string& text) {
            if (text.rfind("Now Printing Page 3", 0) == 0) stop->click();
        };
        window->action(kMnuFilPrint)->trigger();
    }
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text, "Are you sure you want to stop?");
    std::size_t pages = test::eventsOf(events, PrintEvent::PageStart).size();
    EXPECT_GE(pages, 2u);
    EXPECT_LE(pages, 4u);
    EXPECT_TRUE(test::eventsOf(events, PrintEvent::KillDoc).empty());
    EXPECT_FALSE(test::eventsOf(events, PrintEvent::EndDoc).empty());
    EXPECT_EQ(mainWindow().lblStatus.rfind("Printing stopped: the pages printed before the stop are kept", 0), 0u)
            << mainWindow().lblStatus;
}

}  // namespace
}  // namespace hlyd
