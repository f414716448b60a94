// The main window end to end, offscreen: the Open command shows a file, the keys and the
// procedure list move the view, a resize draws again, and a windowed start comes up with the
// Open dialog.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <QDropEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QToolBar>
#include <QToolTip>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QTimer>
#include <QWheelEvent>
#include <array>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>

#include "analysis/basiclan_state.h"
#include "analysis/keywords.h"
#include "base/c_debug.h"
#include "dialogs/frm_splash.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/pic_show.h"
#include "dialogs/qt_application.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "shell/project_choice.h"
#include "files/project_file.h"
#include "platform/qt/image_surface.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "test_views.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

const std::string kSampleModule = std::string(HLYD_SOURCE_DIR) + "/examples/Sample/Sample.bas";
const std::string kSampleProject = std::string(HLYD_SOURCE_DIR) + "/examples/Sample/Sample.vbp";

// The picture shows something besides its background.
bool hasDrawing(const QImage& picture) {
    QRgb background = picture.pixel(picture.width() - 1, picture.height() - 1);
    for (int y = 0; y < picture.height(); y += 2)
        for (int x = 0; x < picture.width(); x += 2)
            if (picture.pixel(x, y) != background) return true;
    return false;
}

class WindowTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        window = std::make_unique<HlydWindow>();
        // The user takes a project's members as the Project File dialog offers them.
        views.emplace().projectFile = [](ProjectFileModel& m) { return cmdOK_Click(m); };
        setDisplaySurface(&window->picDisplay());
        HlydDAValidateFonts();
        sbSetToolBar();
        window->resize(900, 600);
        window->show();
        QApplication::processEvents();
        window->refreshFromModel();
    }
    void TearDown() override {
        setDisplaySurface(nullptr);
        views.reset();
        window.reset();
        ProgramTest::TearDown();
    }

    void open(const std::string& path) {
        ui.openAnswers.push_back(std::vector<std::string>{path});
        window->action(kMnuFilOpen)->trigger();
        QApplication::processEvents();
    }
    std::int32_t first() const { return emitterState().FirstRecord; }
    QString recordLabel() const { return window->lblRecord()->text(); }
    // The widget of a toolbar button, on whichever of the bars it stands.
    QWidget* buttonOf(const std::string& name) const {
        for (QToolBar* bar : window->findChildren<QToolBar*>())
            if (QWidget* button = bar->widgetForAction(window->action(name))) return button;
        return nullptr;
    }

    std::unique_ptr<HlydWindow> window;
    std::optional<test::TestViews> views;  // over the window's
};

TEST_F(WindowTest, TheOpenCommandShowsTheFile) {
    EXPECT_FALSE(window->action(kMnuFilClose)->isEnabled());
    open(kSampleModule);
    ASSERT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(ui.dialogs[0].title, "File(s) to Process");
    EXPECT_EQ(window->windowTitle(), "Halyard - Sample.bas");
    EXPECT_EQ(recordLabel(), "Line: 1");
    EXPECT_TRUE(hasDrawing(window->picShow()->picture()));
    EXPECT_EQ(window->picShow()->picture().size(), window->picShow()->size());
    const SortedListModel& procs = mainWindow().cboProc;
    ASSERT_GT(procs.ListCount(), 1);
    ASSERT_EQ(window->cboProc()->count(), procs.ListCount());
    for (int i = 0; i < procs.ListCount(); ++i) EXPECT_EQ(window->cboProc()->itemText(i).toStdString(), procs.List(i));
    EXPECT_EQ(window->action(kTbrClose)->toolTip(), "Close this file");
    EXPECT_EQ(window->lblStatus()->text().toStdString(), "Ready");  // a menu command ends at rest, as a button does
}

// Open, then Esc in the dialog: the project shown before is still shown, whole.
TEST_F(WindowTest, OpenThenCancelLeavesTheProjectShown) {
    open(kSampleProject);
    const QString title = window->windowTitle();
    const int files = oFile().Count();
    ASSERT_GT(files, 1);
    ASSERT_TRUE(hasDrawing(window->picShow()->picture()));

    window->action(kMnuFilOpen)->trigger();  // no answer waiting: the dialog is cancelled
    QApplication::processEvents();

    EXPECT_EQ(ui.dialogs.size(), 2u);
    EXPECT_EQ(window->windowTitle(), title);
    EXPECT_EQ(oFile().Count(), files);
    EXPECT_TRUE(hasDrawing(window->picShow()->picture()));
    EXPECT_TRUE(window->action(kMnuFilClose)->isEnabled());
}

// With the ToolTips setting off no button shows a tip, not even its caption.
TEST_F(WindowTest, ToolTipsOffShowNoTip) {
    auto tipOf = [&](const std::string& name) {
        QToolTip::hideText();  // the tip goes after a short delay
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));
        QWidget* button = buttonOf(name);
        QHelpEvent help(QEvent::ToolTip, QPoint(4, 4), button->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(button, &help);
        QString shown = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return shown.toStdString();
    };
    EXPECT_EQ(tipOf(kTbrOpen), "Open a file or project for processing");
    window->action(kMnuViewToolTips)->trigger();
    ASSERT_FALSE(hlydSettings().ToolTips);
    for (const char* name : {kTbrOpen, kTbrClose, kTbrNextFile, kTbrPrintOptions}) EXPECT_EQ(tipOf(name), "") << name;
}

// The list is as wide as the longest procedure name, and at 800 pixels the file buttons still
// stand on the bar.
TEST_F(WindowTest, ProcedureListFitsItsNamesAndTheFileButtonsStayOnTheBar) {
    const std::string longName = "CalculateTheQuarterlyTotals";
    std::string module = test::writeTempFile(
            "Wide.bas", "Attribute VB_Name = \"W\"\nSub " + longName + "()\nEnd Sub\nSub A()\nEnd Sub\n");
    window->resize(800, 600);
    open(module);
    QApplication::processEvents();
    QComboBox* list = window->cboProc();
    EXPECT_GE(list->width(), list->fontMetrics().horizontalAdvance(QString::fromStdString(longName)));
    for (const char* name : {kTbrPriorFile, kTbrNextFile}) {
        QWidget* button = buttonOf(name);
        EXPECT_TRUE(button->isVisible()) << name;
        EXPECT_LE(button->mapTo(window.get(), QPoint(button->width(), 0)).x(), window->width()) << name;
    }
}

TEST_F(WindowTest, KeysInTheViewScroll) {
    window->resize(900, 320);  // several pages of the sample
    QApplication::processEvents();
    open(kSampleModule);
    std::int32_t start = first();
    QTest::keyClick(window->picShow(), Qt::Key_PageDown);
    std::int32_t paged = first();
    EXPECT_GT(paged, start + 1);
    EXPECT_EQ(recordLabel(), QString("Line: %1").arg(paged));
    EXPECT_EQ(window->vsbDisplay()->value(), mainWindow().vsbDisplay.Value);
    QTest::keyClick(window->picShow(), Qt::Key_Up);
    EXPECT_EQ(first(), paged - 1);
    QTest::keyClick(window->picShow(), Qt::Key_End);
    EXPECT_EQ(window->vsbDisplay()->value(), window->vsbDisplay()->maximum());
    QTest::keyClick(window->picShow(), Qt::Key_Home);
    EXPECT_EQ(first(), start);
}

// The wheel over the view scrolls the listing, and the view keeps the focus and its keys.
TEST_F(WindowTest, TheWheelOverTheViewScrolls) {
    window->resize(900, 320);
    QApplication::processEvents();
    open(kSampleModule);
    window->picShow()->setFocus();
    std::int32_t start = first();
    auto turn = [&](QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers) {
        QPointF at(10, 10);
        QWheelEvent wheel(at, window->picShow()->mapToGlobal(at), pixels, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(window->picShow(), &wheel);
    };
    turn(QPoint(), QPoint(0, -120), Qt::NoModifier);
    EXPECT_EQ(first(), start + 3);
    EXPECT_EQ(window->vsbDisplay()->value(), mainWindow().vsbDisplay.Value);
    EXPECT_EQ(recordLabel(), QString("Line: %1").arg(start + 3));
    turn(QPoint(0, 400), QPoint(0, 120), Qt::NoModifier);  // a touchpad's pixels, many lines' worth
    EXPECT_EQ(first(), start);
    QTest::keyClick(window->picShow(), Qt::Key_Down);
    EXPECT_EQ(first(), start + 1);
}

TEST_F(WindowTest, TheProcedureListJumpsToTheProcedure) {
    open(kSampleModule);
    int index = window->cboProc()->findText("Fill");
    ASSERT_GE(index, 0);
    emit window->cboProc()->activated(index);
    const ProcEntry* fill = nullptr;
    for (const ProcEntry& p : yProc())
        if (p.Name == "Fill") fill = &p;
    ASSERT_NE(fill, nullptr);
    EXPECT_EQ(first(), fill->FirstRecord);
    EXPECT_EQ(recordLabel(), QString("Line: %1").arg(fill->FirstRecord));
    EXPECT_EQ(window->cboProc()->currentIndex(), index);
}

// Dragging the thumb moves the view with it, before the thumb is let go; once let go the bar
// shows the view's first record.
TEST_F(WindowTest, DraggingTheThumbScrollsLive) {
    window->resize(900, 320);
    QApplication::processEvents();
    open(kSampleModule);
    QScrollBar* bar = window->vsbDisplay();
    std::int32_t start = first();
    bar->setSliderDown(true);
    bar->setSliderPosition(start + 20);
    EXPECT_EQ(first(), start + 20);
    bar->setSliderPosition(start + 10);
    EXPECT_EQ(first(), start + 10);
    EXPECT_EQ(bar->sliderPosition(), start + 10);
    bar->setSliderDown(false);
    emit bar->sliderReleased();
    EXPECT_EQ(bar->value(), mainWindow().vsbDisplay.Value);
}

// Every procedure chosen from the list is drawn, from the first of the file to the last, in the
// list's order and back.
TEST_F(WindowTest, EveryProcedureChosenFromTheListIsDrawn) {
    std::string text =
            "VERSION 5.00\nBegin VB.UserControl Tree\n   ClientHeight = 1800\nEnd\n"
            "Attribute VB_Name = \"Tree\"\nOption Explicit\n";
    for (int p = 1; p <= 60; ++p)
        text += "Public Property Get P" + std::to_string(p) + "() As Long\n    P" + std::to_string(p) + " = " +
                std::to_string(p) + "\nEnd Property\n";
    open(test::writeTempFile("Tree.ctl", text));
    QComboBox* list = window->cboProc();
    ASSERT_GT(list->count(), 60);
    for (int pass = 0; pass < 2; ++pass)
        for (int k = 0; k < list->count(); ++k) {
            int i = pass == 0 ? k : list->count() - 1 - k;
            list->setCurrentIndex(i);
            emit list->activated(i);
            QApplication::processEvents();
            EXPECT_TRUE(hasDrawing(window->picShow()->picture())) << list->itemText(i).toStdString();
        }
}

// Files dropped from a file manager: a source file opens as Open opens it, a project too (its
// members as the Project File dialog offers them); a file of another kind is named in the status
// and nothing else changes.
TEST_F(WindowTest, DroppedSourceAndProjectFilesOpen) {
    auto drop = [&](const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths) urls.push_back(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QPoint at(20, 20);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &dropped);
        QApplication::processEvents();
        return dropped.isAccepted();
    };
    const QString notes = QString::fromStdString(test::writeTempFile("notes.txt", "not Basic\n"));
    EXPECT_TRUE(drop({notes}));
    EXPECT_EQ(window->windowTitle(), "Halyard");
    EXPECT_EQ(window->lblStatus()->text(),
              "Not opened: notes.txt (only Visual Basic source, project and group files open)");
    EXPECT_TRUE(ui.dialogs.empty());  // no Open dialog came up

    const QString upper = QString::fromStdString(test::writeTempFile("MODULE2.BAS", "Sub A()\nEnd Sub\n"));
    EXPECT_TRUE(drop({QString::fromStdString(kSampleModule), notes, upper}));
    EXPECT_EQ(oFile().Count(), 2);
    EXPECT_EQ(window->windowTitle(), "Halyard - MODULE2.BAS");  // the last opened is shown, as after Open
    EXPECT_TRUE(hasDrawing(window->picShow()->picture()));
    EXPECT_TRUE(window->lblStatus()->text().startsWith("Not opened: notes.txt"));

    window->action(kMnuFilCloseAll)->trigger();
    EXPECT_TRUE(drop({QString::fromStdString(kSampleProject)}));
    EXPECT_EQ(window->windowTitle(), "Halyard - Sample.vbp");
    EXPECT_GT(oFile().Count(), 1);
    EXPECT_EQ(window->lblStatus()->text(), "Ready");
    EXPECT_TRUE(ui.dialogs.empty());
}

TEST_F(WindowTest, AResizeDrawsTheViewAgain) {
    open(kSampleModule);
    std::int32_t lastBefore = emitterState().LastRecord;
    window->resize(900, 900);
    QApplication::processEvents();
    ImageSurface& picDisplay = window->picDisplay();
    EXPECT_EQ(picDisplay.sizePixels(), window->picShow()->size());
    EXPECT_EQ(emitterState().ViewHeight, window->picShow()->height() * picDisplay.twipsPerPixelY());
    EXPECT_GT(emitterState().LastRecord, lastBefore);
}

TEST_F(WindowTest, CaptionsAndTipsAreTheClassicOnes) {
    EXPECT_EQ(window->action(kMnuViewProc1)->text(), "Prior Procecdure");
    EXPECT_EQ(window->action(kTbrOpen)->toolTip(), "Open a file or project for processing");
    EXPECT_FALSE(window->action(kMnuFilPrint)->isEnabled());
    window->action(kMnuViewStatus)->trigger();
    EXPECT_FALSE(window->lblRecord()->isVisible());
    EXPECT_FALSE(window->action(kMnuViewStatus)->isChecked());
}

TEST_F(WindowTest, TheHelpButtonAndMenuOpenTheProgramsPagesAndThePopupHasEveryItem) {
    EXPECT_FALSE(window->action(kTbrHelp)->isEnabled());  // no help file named yet
    EXPECT_EQ(window->action(kTbrHelp)->toolTip(), "Not available - Help file Missing");
    hlydMain().HelpFile = std::string(HLYD_SOURCE_DIR) + "/data/help/index.html";
    HlydMSEnableHLYDControls();
    window->refreshFromModel();
    ASSERT_TRUE(window->action(kTbrHelp)->isEnabled());
    window->action(kTbrHelp)->trigger();
    window->action(kMnuHelSearch)->trigger();
    window->action(kMnuHelHelp)->trigger();
    ASSERT_EQ(ui.opened.size(), 3u);
    EXPECT_TRUE(ui.opened[0].ends_with("help/index.html"));
    EXPECT_TRUE(ui.opened[1].ends_with("help/topics.html"));
    EXPECT_TRUE(ui.opened[2].ends_with("help/using-help.html"));

    QStringList items;
    for (QAction* item : window->findChild<QMenu*>(kMnuPopupMenu)->actions())
        items << (item->isSeparator() ? "-" : item->text());
    EXPECT_EQ(items.join("|"),
              "Copy|-|Open|Close |-|Print|Display Options|-|Next Procedure|Prior Procedure|Next File|"
              "Prior File|-|Project Window|-|Close Halyard");
}

TEST_F(WindowTest, TheDebugMenuHoldsItsItemsWhenTheSettingAsks) {
    hlydSettings().DebugMenu = true;
    sbSetToolBar();
    window->refreshFromModel();
    QAction* debug = window->action(kMnuDebug);
    ASSERT_NE(debug, nullptr);
    EXPECT_TRUE(debug->isVisible());
    int items = 0;
    for (QAction* item : debug->menu()->actions()) items += item->isSeparator() ? 0 : 1;
    EXPECT_EQ(items, 10);
    QAction* traceApp = window->action(kMnuDebugTraceApp);
    ASSERT_NE(traceApp, nullptr);
    EXPECT_TRUE(debug->menu()->actions().contains(traceApp));
    traceApp->trigger();
    EXPECT_TRUE(theDebug().TraceApplication);
    EXPECT_TRUE(traceApp->isChecked());
    traceApp->trigger();
    EXPECT_FALSE(theDebug().TraceApplication);
    EXPECT_FALSE(traceApp->isChecked());
}

TEST_F(WindowTest, ABinaryFileIsRefusedAndTheWindowStaysUsable) {
    std::string binary =
            test::writeTempFile("Binary.bas", std::string("\x00\x01\x02\xff\xfe", 5) + std::string(600, '\0'));
    open(binary);
    EXPECT_FALSE(ui.shown.empty());
    open(kSampleModule);
    EXPECT_EQ(window->windowTitle(), "Halyard - Sample.bas");
    EXPECT_EQ(recordLabel(), "Line: 1");
}

TEST(Splash, ShowsUserAndCompany) {
    FrmSplash splash("Ada Lovelace", "Analytical Engines Ltd");
    EXPECT_EQ(splash.findChild<QLabel*>("lblUser")->text(), "Ada Lovelace");
    EXPECT_EQ(splash.findChild<QLabel*>("lblCompany")->text(), "Analytical Engines Ltd");
}

class WindowedStartTest : public test::ConfigDirTest {
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

TEST_F(WindowedStartTest, TheWindowComesUpWithTheOpenDialog) {
    EXPECT_EQ(Main("/idemode"), 0);
    ASSERT_NE(windowedMainWindow(), nullptr);
    EXPECT_TRUE(windowedMainWindow()->isVisible());
    EXPECT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(displaySurface(), &windowedMainWindow()->picDisplay());
}

TEST_F(WindowedStartTest, ClosingTheWindowKeepsItsPlaceInTheSettings) {
    ASSERT_EQ(Main("/idemode"), 0);
    HlydWindow* window = windowedMainWindow();
    window->setGeometry(40, 60, 700, 500);
    window->close();
    int tpp = window->picDisplay().twipsPerPixelX();
    std::array<std::int32_t, 4> expected{40 * tpp, 60 * tpp, 700 * tpp, 500 * tpp};
    EXPECT_EQ(hlydSettings().Screen, expected);
    std::ifstream ini(dir + "/HLYD.INI");
    std::string text((std::istreambuf_iterator<char>(ini)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("Screen=" + std::to_string(expected[0]) + " " + std::to_string(expected[1])),
              std::string::npos);
}

// Settings that cannot be kept do not stop the window: the user is told why, once, and works on.
TEST_F(WindowedStartTest, AnUnwritableSettingsFolderIsToldAndTheWindowWorks) {
    std::ofstream(dir + "/plain") << "not a directory";
    useConfigDir(dir + "/plain/config");
    ASSERT_EQ(Main("/idemode"), 0);
    HlydWindow* window = windowedMainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find("will not be kept"), std::string::npos) << ui.shown[0].text;
    ui.openAnswers.push_back(std::vector<std::string>{kSampleModule});
    window->action(kMnuFilOpen)->trigger();
    EXPECT_EQ(window->windowTitle(), "Halyard - Sample.bas");
    window->close();
    EXPECT_EQ(ui.shown.size(), 1u);
}

// The scripted answers, with the window's events handled as the program's own Ui does.
class EventsUi : public test::ScriptedUi {
public:
    void processEvents() override { QApplication::processEvents(); }
};

// How the user dismisses the splash.
enum class Dismissal { KeyOnSplash, KeyOnWindow, ClickOnWindow };

// A standalone start waits on its splash while the clock stands still: a key or a click ends the
// wait, and the window is there with its commands. Meanwhile the commands waited. Gives the
// start's time.
qint64 startAndDismiss(Dismissal how, bool& commandsWaited, Ui& restored) {
    EventsUi events;
    setUi(&events);
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == "frmSplash" && top->isVisible() && windowedMainWindow()) {
                commandsWaited = !mainWindow().controlsEnabled;
                if (how == Dismissal::ClickOnWindow) QTest::mouseClick(windowedMainWindow()->picShow(), Qt::LeftButton);
                else
                    QTest::keyClick(how == Dismissal::KeyOnSplash ? top : windowedMainWindow()->picShow(),
                                    Qt::Key_Space);
                press.stop();
            }
    });
    press.start(20);
    QObject guard;                                              // the timer ends with the start
    QTimer::singleShot(5000, &guard, [] { endSplashWait(); });  // the test fails rather than hang
    QElapsedTimer started;
    started.start();
    EXPECT_EQ(Main(""), 0);
    EXPECT_EQ(events.dialogs.size(), 1u);
    setUi(&restored);
    return started.elapsed();
}

// The key on the splash, or on the window behind it that the user may have clicked into; a click
// on that window.
TEST_F(WindowedStartTest, AKeyOrAClickEndsTheSplashWait) {
    for (Dismissal how : {Dismissal::KeyOnSplash, Dismissal::KeyOnWindow, Dismissal::ClickOnWindow}) {
        bool commandsWaited = false;
        EXPECT_LT(startAndDismiss(how, commandsWaited, ui), 4000) << static_cast<int>(how);
        EXPECT_TRUE(commandsWaited);
        ASSERT_NE(windowedMainWindow(), nullptr);
        EXPECT_TRUE(windowedMainWindow()->isVisible());
        EXPECT_TRUE(mainWindow().controlsEnabled);
        uninstallWindowedRun();
        useConfigDir(dir + "/again");
        installWindowedRun();
    }
}

// A window closed maximised comes back maximised in the next run, over its normal place.
TEST_F(WindowedStartTest, AMaximisedWindowComesBackMaximised) {
    ASSERT_EQ(Main("/idemode"), 0);
    HlydWindow* window = windowedMainWindow();
    window->setGeometry(40, 60, 700, 500);
    window->showMaximized();
    QApplication::processEvents();
    ASSERT_TRUE(window->isMaximized());
    window->close();
    EXPECT_NE(test::settingsFileText().find("WindowState=2"), std::string::npos);
    uninstallWindowedRun();
    useConfigDir(dir);
    installWindowedRun();
    ASSERT_EQ(Main("/idemode"), 0);
    EXPECT_TRUE(windowedMainWindow()->isMaximized());
    windowedMainWindow()->showNormal();
    windowedMainWindow()->close();
    EXPECT_NE(test::settingsFileText().find("WindowState=0"), std::string::npos);
}

// The splash greets for a second at most: with nothing pressed the start goes on once the clock
// has passed a second.
TEST_F(WindowedStartTest, TheSplashStandsForASecondAtMost) {
    EventsUi events;
    setUi(&events);
    QObject guard;
    QTimer::singleShot(50, &guard, [this] { clock.ticks += 1000; });
    QTimer::singleShot(5000, &guard, [] { endSplashWait(); });  // the test fails rather than hang
    QElapsedTimer started;
    started.start();
    EXPECT_EQ(Main(""), 0);
    EXPECT_LT(started.elapsed(), 4000);
    setUi(&ui);
}

TEST_F(WindowedStartTest, NoOpenDialogWhenTheSettingSaysNo) {
    std::ofstream(dir + "/HLYD.INI") << "[General]\nShowOpenDialog=No\n";
    EXPECT_EQ(Main("/idemode"), 0);
    EXPECT_TRUE(ui.dialogs.empty());
}

}  // namespace
}  // namespace hlyd
