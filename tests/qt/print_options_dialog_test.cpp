// The print options in the window, offscreen: opened from the menu, the toolbar and the Print
// dialog, a change accepted into HLYD.INI, and margins too wide that keep the form open.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <memory>

#include "base/app_info.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/macro_strip.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "shell/window_commands.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

class PrintOptionsWindowTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    static void type(QWidget* form, const char* name, const QString& text) {
        auto* field = form->findChild<QLineEdit*>(name);
        ASSERT_NE(field, nullptr) << name;
        field->setFocus();
        field->setText(text);
        emit field->textEdited(text);
        emit field->editingFinished();
    }

    std::unique_ptr<HlydWindow> window;
};

TEST_F(PrintOptionsWindowTest, TheMenuOpensTheFormAndOkWritesTheChange) {
    ASSERT_TRUE(window->action(kMnuOptionsPrint)->isEnabled());
    std::string title, heading, tip;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        title = form->windowTitle().toStdString();
        type(form, "txtLineNumberIncrement", "5");
        auto* footer = form->findChild<QLineEdit*>("txtHeading3");
        footer->setFocus();
        footer->setCursorPosition(0);
        auto* strip = form->findChild<MacroStrip*>("picMacros");
        QHelpEvent help(QEvent::ToolTip, strip->buttonRect(3).center(),
                        strip->mapToGlobal(strip->buttonRect(3).center()));
        QApplication::sendEvent(strip, &help);
        tip = QToolTip::text().toStdString();
        QToolTip::hideText();
        QTest::mouseClick(strip, Qt::LeftButton, {}, strip->buttonRect(3).center());
        heading = footer->text().toStdString();
        form->findChild<QPushButton*>("cmdOK")->click();
    });
    window->action(kMnuOptionsPrint)->trigger();
    EXPECT_EQ(title, "Print Options");
    EXPECT_EQ(heading, "@Page; @User");
    EXPECT_EQ(tip, "Print the page number");
    std::string ini = test::settingsFileText();
    EXPECT_NE(ini.find("LineNumberIncrement=5"), std::string::npos);
    EXPECT_NE(ini.find("FootingLeft=@Page; @User"), std::string::npos);
}

TEST_F(PrintOptionsWindowTest, MarginsTooWideKeepTheFormOpenAndWriteNothing) {
    std::string before = test::settingsFileText();
    std::string message, tab;
    bool stillOpen = false;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        type(form, "txtMargin2", "8");
        form->findChild<QPushButton*>("cmdOK")->click();
        stillOpen = form->isVisible();
        message = form->findChild<QLabel*>("lblMessage")->text().toStdString();
        auto* tabs = form->findChild<QTabWidget*>("tabOptions");
        tab = tabs->tabText(tabs->currentIndex()).toStdString();
        form->findChild<QPushButton*>("cmdCancel")->click();
    });
    window->action(kTbrPrintOptions)->trigger();
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(message, "Left/Right Margins too large.");
    EXPECT_EQ(tab, "Layout");
    EXPECT_EQ(test::settingsFileText(), before);
    EXPECT_EQ(pageSettings().Margins.Left, 1440);
}

TEST_F(PrintOptionsWindowTest, AFontThePrinterLacksShowsTheFontsTab) {
    std::string message, tab;
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        form->findChild<QComboBox*>("cboFont3")->setCurrentText("Nonesuch Sans");
        form->findChild<QPushButton*>("cmdOK")->click();
        message = form->findChild<QLabel*>("lblMessage")->text().toStdString();
        auto* tabs = form->findChild<QTabWidget*>("tabOptions");
        tab = tabs->tabText(tabs->currentIndex()).toStdString();
        form->findChild<QPushButton*>("cmdCancel")->click();
    });
    window->action(kMnuOptionsPrint)->trigger();
    EXPECT_EQ(message.rfind("KeyWords: The selected printer", 0), 0u) << message;
    EXPECT_EQ(tab, "Fonts");
}

// Escape with a change asks first; No leaves without a word written.
TEST_F(PrintOptionsWindowTest, EscapeWithAChangeAsksAndNoWritesNothing) {
    std::string before = test::settingsFileText();
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    window->action(kMnuOptionsPrint)->trigger();
    EXPECT_TRUE(ui.shown.empty());  // nothing changed, nothing to ask
    ui.answers = {MsgAnswer::No};
    QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        type(form, "txtOrphan", "3");
        QTest::keyClick(form, Qt::Key_Escape);
    });
    window->action(kMnuOptionsPrint)->trigger();
    ASSERT_FALSE(ui.shown.empty());
    EXPECT_EQ(ui.shown.back().text, "Do You Want to Save Your Options?");
    EXPECT_EQ(test::settingsFileText(), before);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PrintOptionsWindowTest, ThePrintDialogsOptionsButtonOpensTheForm) {
    showSource("module.bas", test::procedures(1, 3));
    sbButtonsOpen();
    window->refreshFromModel();
    std::string inner;
    QTimer::singleShot(0, [&] {
        QWidget* print = QApplication::activeModalWidget();
        ASSERT_NE(print, nullptr);
        QTimer::singleShot(0, [&, print] {
            QWidget* options = QApplication::activeModalWidget();
            inner = options ? options->objectName().toStdString() : "";
            if (options) options->findChild<QPushButton*>("cmdCancel")->click();
            print->findChild<QPushButton*>("cmdCancel")->click();
        });
        print->findChild<QPushButton*>("cmdOptions")->click();
    });
    window->action(kMnuFilPrint)->trigger();
    EXPECT_EQ(inner, "frmPrintOptions");
}

}  // namespace
}  // namespace hlyd
