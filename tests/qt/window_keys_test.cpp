// The keys a desktop user expects: the standard shortcuts of the File menu, F1 for the help
// page of the window or dialog in front, and access keys in every dialog that each reach one
// control.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>

#include "dialogs/pic_show.h"
#include "files/file_table.h"
#include "shell/app_start.h"
#include "shell/project_choice.h"
#include "shown_window.h"
#include "test_support.h"
#include "test_views.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

const std::string kSampleModule = std::string(HLYD_SOURCE_DIR) + "/examples/Sample/Sample.bas";
const std::string kSampleProject = std::string(HLYD_SOURCE_DIR) + "/examples/Sample/Sample.vbp";

class WindowKeysTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        hlydMain().HelpFile = std::string(HLYD_SOURCE_DIR) + "/data/help/index.html";
        window = test::showWindow();
        window->activateWindow();
        QApplication::processEvents();
    }
    void TearDown() override {
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    static void closeModal(QWidget* form) {
        if (auto* dialog = qobject_cast<QDialog*>(form)) return dialog->reject();
        form->close();
    }
    // Runs `user` on the dialog that the command brings up, then leaves it with Escape.
    void inDialogOf(const std::string& command, const std::function<void(QWidget*)>& user) {
        // Looked for until it shows: the command may process events (its status) before the
        // dialog is up, and a dialog never found would wait for ever.
        bool seen = false;
        QTimer poll;
        poll.setInterval(10);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            QWidget* form = QApplication::activeModalWidget();
            if (!form || seen) return;
            seen = true;
            poll.stop();
            user(form);
            QTest::keyClick(form, Qt::Key_Escape);
            // A loaded machine may leave the key with another widget: the dialog must go anyway.
            if (form->isVisible()) closeModal(form);
        });
        // Whatever happens, the dialog goes within 30 seconds, so that the test fails rather than
        // waits for ever.
        QTimer watchdog;
        watchdog.setSingleShot(true);
        QObject::connect(&watchdog, &QTimer::timeout, [] {
            if (QWidget* form = QApplication::activeModalWidget()) closeModal(form);
        });
        poll.start();
        watchdog.start(30000);
        window->action(command)->trigger();
        poll.stop();
        watchdog.stop();
        EXPECT_TRUE(seen) << command;
    }
    std::string lastOpened() const { return ui.opened.empty() ? std::string() : ui.opened.back(); }

    std::unique_ptr<HlydWindow> window;
};

TEST_F(WindowKeysTest, TheFileMenusStandardShortcuts) {
    std::map<std::string, QKeySequence> keys{{kMnuFilOpen, QKeySequence("Ctrl+O")},
                                             {kMnuFilClose, QKeySequence("Ctrl+W")},
                                             {kMnuFilPrint, QKeySequence("Ctrl+P")},
                                             {kMnuFilExit, QKeySequence("Ctrl+Q")}};
    for (const auto& [name, key] : keys) EXPECT_EQ(window->action(name)->shortcut(), key) << name;
    // Ctrl+F belongs to Find alone.
    std::vector<std::string> ctrlF;
    for (QAction* item : window->findChildren<QAction*>())
        if (item->shortcut() == QKeySequence("Ctrl+F")) ctrlF.push_back(item->objectName().toStdString());
    EXPECT_EQ(ctrlF, std::vector<std::string>{kMnuEditFind});

    ui.openAnswers.push_back(std::vector<std::string>{kSampleModule});
    QTest::keyClick(window->picShow(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(window->windowTitle(), "Halyard - Sample.bas");
    QTest::keyClick(window->picShow(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window->windowTitle(), "Halyard");
}

TEST_F(WindowKeysTest, F1OpensTheHelpPageOfTheWindowOrDialogInFront) {
    QTest::keyClick(window->picShow(), Qt::Key_F1);
    EXPECT_NE(lastOpened().find("/window.html"), std::string::npos) << lastOpened();
    showSource("module.bas", test::procedures(1, 5));
    sbButtonsOpen();
    window->refreshFromModel();
    const std::map<std::string, std::string> pages{{kMnuFilPrint, "/printing.html"},
                                                   {kMnuOptionsPrint, "/print-options.html"},
                                                   {kMnuOptionsDisplay, "/display-options.html"}};
    for (const auto& [command, page] : pages) {
        inDialogOf(command, [&](QWidget* form) {
            QWidget* focused = form->focusWidget();
            QTest::keyClick(focused ? focused : form, Qt::Key_F1);
        });
        EXPECT_NE(lastOpened().find(page), std::string::npos) << command << ": " << lastOpened();
    }
    // Alt+H is the Print dialog's Help button.
    ui.opened.clear();
    inDialogOf(kMnuFilPrint, [](QWidget* form) {
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
        QTest::keyClick(form->focusWidget(), Qt::Key_H, Qt::AltModifier);
        QTest::qWait(300);  // an access key presses its button, which clicks once it is seen down
    });
    EXPECT_NE(lastOpened().find("/printing.html"), std::string::npos) << lastOpened();
}

// The access keys of a dialog's controls in view: each letter is used once, and a label's leads
// to the control it names.
std::vector<std::string> accessKeyFaults(QWidget* form) {
    std::map<QChar, QString> used;
    std::vector<std::string> faults;
    auto take = [&](const QString& text, const QString& owner) {
        qsizetype at = text.indexOf('&');
        while (at >= 0 && at + 1 < text.size() && text[at + 1] == '&') at = text.indexOf('&', at + 2);
        if (at < 0 || at + 1 >= text.size()) return;
        QChar letter = text[at + 1].toLower();
        if (used.count(letter))
            faults.push_back(("'" + QString(letter) + "' of " + owner + " and " + used[letter]).toStdString());
        used[letter] = owner;
    };
    for (QWidget* w : form->findChildren<QWidget*>()) {
        if (!w->isVisible()) continue;
        if (auto* button = qobject_cast<QAbstractButton*>(w)) take(button->text(), button->text());
        if (auto* box = qobject_cast<QGroupBox*>(w)) take(box->title(), box->title());
        if (auto* tabs = qobject_cast<QTabWidget*>(w))
            for (int i = 0; i < tabs->count(); ++i) take(tabs->tabText(i), tabs->tabText(i));
        if (auto* label = qobject_cast<QLabel*>(w)) {
            if (!label->text().contains('&') || label->textFormat() == Qt::RichText) continue;
            take(label->text(), label->text());
            if (!label->buddy()) faults.push_back(("no buddy: " + label->text()).toStdString());
        }
    }
    return faults;
}

TEST_F(WindowKeysTest, EveryDialogsAccessKeysReachOneControlEach) {
    showSource("module.bas", test::procedures(1, 5));
    sbButtonsOpen();
    window->refreshFromModel();
    for (const char* command : {kMnuFilPrint, kMnuOptionsPrint, kMnuOptionsDisplay})
        inDialogOf(command, [&](QWidget* form) {
            auto* tabs = form->findChild<QTabWidget*>();
            for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
                if (tabs) tabs->setCurrentIndex(page);
                QApplication::processEvents();
                for (const std::string& fault : accessKeyFaults(form))
                    ADD_FAILURE() << command << " " << page << ": " << fault;
            }
        });
    // The Project File dialog, as opening a project brings it up.
    bool seen = false;
    test::TestViews views;
    views.projectFile = [&](ProjectFileModel& m) {
        seen = true;
        return cmdOK_Click(m);
    };
    ui.openAnswers.push_back(std::vector<std::string>{kSampleProject});
    QTimer::singleShot(0, [&] {
        if (QWidget* form = QApplication::activeModalWidget()) {
            for (const std::string& fault : accessKeyFaults(form)) ADD_FAILURE() << "project file: " << fault;
            QTest::keyClick(form, Qt::Key_Escape);
        }
    });
    window->action(kMnuFilOpen)->trigger();
}

}  // namespace
}  // namespace hlyd
