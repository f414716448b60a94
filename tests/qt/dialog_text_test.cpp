// Text through the dialogs, offscreen: every upper-half Windows-1252 byte a setting holds comes
// back from each dialog's save as it went in, in the settings and in HLYD.INI; a font name is
// the system's, and shown as the system spells it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <string>

#include "dialogs/hlyd_window.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "shell/window_commands.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

std::string everyHighByte() {
    std::string text;
    for (int c = 0x80; c <= 0xFF; ++c) text += static_cast<char>(c);
    return text;
}

class DialogTextTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    // Opens the dialog by its command, types `text` into `field` so that there is a change to
    // save, and presses `ok`.
    void saveThrough(const char* command, const char* field, const QString& text, const char* ok) {
        QTimer::singleShot(0, [field, text, ok] {
            QWidget* form = QApplication::activeModalWidget();
            ASSERT_NE(form, nullptr);
            auto* edit = form->findChild<QLineEdit*>(field);
            ASSERT_NE(edit, nullptr) << field;
            edit->setText(text);
            emit edit->textEdited(text);
            form->findChild<QPushButton*>(ok)->click();
        });
        window->action(command)->trigger();
    }
    static bool inSettingsFile(const std::string& key, const std::string& value) {
        return test::settingsFileText().find(key + "=" + value + "\n") != std::string::npos;
    }

    const std::string high = everyHighByte();
    std::unique_ptr<HlydWindow> window;
};

TEST_F(DialogTextTest, ThePrintDialogKeepsTheOptionalHeading) {
    hlydSettings().OptionalHeading = high;
    showSource("module.bas", test::procedures(1, 3));
    sbButtonsOpen();
    window->refreshFromModel();
    saveThrough(kMnuFilPrint, "txtPageNumberStart", "1", "cmdOK");
    EXPECT_EQ(hlydSettings().OptionalHeading, high);
    EXPECT_TRUE(test::textPrinted(events, high));
}

TEST_F(DialogTextTest, ThePrintOptionsKeepTheHeadings) {
    hlydSettings().FootingLeft = high;
    saveThrough(kMnuOptionsPrint, "txtHeading0", "Page \u2013 \u2019x\u2019 \u20AC", "cmdOK");
    EXPECT_EQ(hlydSettings().FootingLeft, high);
    EXPECT_EQ(hlydSettings().HeadingLeft, "Page \x96 \x92x\x92 \x80");
    EXPECT_TRUE(inSettingsFile("FootingLeft", high));
}

TEST_F(DialogTextTest, TheDisplayOptionsKeepTheUsersNames) {
    hlydSettings().UserCompany = high;
    saveThrough(kMnuOptionsDisplay, "txtUser0", "Ren\u00E9e \u0160", "cmdOk");
    EXPECT_EQ(hlydSettings().UserCompany, high);
    EXPECT_EQ(hlydSettings().UserName,
              "Ren\xE9"
              "e \x8A");
    EXPECT_TRUE(inSettingsFile("User Company", high));
}

TEST_F(DialogTextTest, TheFontsTabShowsAFontNameAsTheSystemSpellsIt) {
    displayAttributes().Elements[kElemComments].slot[kPrint].Font.Name = "Caf\xc3\xa9 Sans";
    QString shown;
    QTimer::singleShot(0, [&shown] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        shown = form->findChild<QComboBox*>("cboFont1")->currentText();
        form->findChild<QPushButton*>("cmdCancel")->click();
    });
    window->action(kMnuOptionsPrint)->trigger();
    EXPECT_EQ(shown, QString::fromUtf8("Caf\xc3\xa9 Sans"));
}

}  // namespace
}  // namespace hlyd
