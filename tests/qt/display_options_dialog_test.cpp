// The Display Options dialog in the window, offscreen: opened by its command, one setting changed
// and accepted, and the change in the settings file; a close with changes asks first.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <memory>
#include <sstream>

#include "dialogs/hlyd_window.h"
#include "display/font_metrics.h"
#include "platform/qt/image_surface.h"
#include "settings/settings_store.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

class DisplayOptionsWindowTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        window = std::make_unique<HlydWindow>();
        setDisplaySurface(&window->picDisplay());
        HlydDAValidateFonts();
        sbSetToolBar();
        window->refreshFromModel();
        window->show();
    }
    void TearDown() override {
        setDisplaySurface(nullptr);
        window.reset();
        ProgramTest::TearDown();
    }
    std::string ini() const {
        std::ifstream in(dir + "/HLYD.INI");
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    // Runs `user` on the dialog once the command has opened it.
    template <class F>
    void whenShown(F user) {
        QTimer::singleShot(0, [user] {
            QWidget* form = QApplication::activeModalWidget();
            ASSERT_NE(form, nullptr);
            user(form);
        });
    }
    std::unique_ptr<HlydWindow> window;
};

TEST_F(DisplayOptionsWindowTest, TheCommandOpensTheDialogAndOkKeepsTheChange) {
    ASSERT_TRUE(window->action(kMnuOptionsDisplay)->isEnabled());
    std::string title;
    whenShown([&title](QWidget* form) {
        title = form->windowTitle().toStdString();
        auto* company = form->findChild<QLineEdit*>("txtUser1");
        company->setText("Initech");
        emit company->textEdited("Initech");
        auto* extension = form->findChild<QLineEdit*>("cboExtension2");
        extension->setText("inc");
        form->findChild<QPushButton*>("cmdOk")->click();
    });
    window->action(kMnuOptionsDisplay)->trigger();
    EXPECT_EQ(title, "Display Options");
    std::string text = ini();
    EXPECT_NE(text.find("User Company=Initech\n"), std::string::npos);
    EXPECT_NE(text.find("|INC\n"), std::string::npos);
}

TEST_F(DisplayOptionsWindowTest, EscapeWithChangesAsksAndNoDropsThem) {
    const std::string before = ini();
    ui.answers = {MsgAnswer::No};
    std::string shown;
    whenShown([&shown](QWidget* form) {
        auto* tab = form->findChild<QLineEdit*>("txtTabWidth");
        tab->setText("x");
        emit tab->textEdited("x");
        auto* extension = form->findChild<QLineEdit*>("cboExtension0");
        extension->setText("*.X");
        extension->setFocus();
        form->findChild<QPushButton*>("cmdOk")->click();
        shown = form->findChild<QLabel*>("lblMessage")->text().toStdString();
        QTest::keyClick(form, Qt::Key_Escape);
    });
    window->action(kTbrDisplayOptions)->trigger();
    EXPECT_EQ(shown, "Project-file extension may not contain wild-card characters.");
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].title, "Save Options");
    EXPECT_EQ(ini(), before);
}

TEST_F(DisplayOptionsWindowTest, ADoubleClickOnAFontAsksForTheFontOfItsElement) {
    std::string fontTitle;
    whenShown([&fontTitle](QWidget* form) {
        QTimer::singleShot(0, [&fontTitle, form] {
            QWidget* fonts = QApplication::activeModalWidget();
            fontTitle = fonts->windowTitle().toStdString();
            QMetaObject::invokeMethod(fonts, "reject", Qt::QueuedConnection);
            QMetaObject::invokeMethod(form, "reject", Qt::QueuedConnection);
        });
        QTest::mouseDClick(form->findChild<QLineEdit*>("txtFont4"), Qt::LeftButton);
    });
    window->action(kMnuOptionsDisplay)->trigger();
    EXPECT_EQ(fontTitle, "Set Font for: Literals");
    EXPECT_TRUE(ui.shown.empty());
}

}  // namespace
}  // namespace hlyd
