// Find, select and copy in the main window, offscreen, as a reader does them: Ctrl+F and the bar,
// Enter, F3 and Shift+F3 with the status telling of the wrap, match case and whole word, Escape;
// a drag over an indented block and a wrapped line, Shift+click, Shift+arrows and Ctrl+A, each
// copied with Ctrl+C and read back from the clipboard; the popup's Copy; the list of all files.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QTreeWidget>

#include "dialogs/find_bar.h"
#include "dialogs/find_hits.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/pic_show.h"
#include "display/screen_emitter.h"
#include "display/view_find.h"
#include "display/view_map.h"
#include "files/file_table.h"
#include "shell/project_choice.h"
#include "platform/qt/image_surface.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

const std::string kLong =
        "    total = total + alpha * beta + gamma * delta + epsilon * zeta + eta * theta + iota * kappa "
        "+ lambda * mu + nu * xi + omicron * pi + rho * sigma + tau * upsilon ' long";
const std::vector<std::string> kLines = {
        "Option Explicit", "Sub Compute()", "\tIf total > 0 Then", "   total = 0   ' reset", "\tEnd If", kLong,
        "End Sub",
};

std::string joined(std::size_t from, std::size_t to) {
    std::string text;
    for (std::size_t i = from; i <= to; ++i) text += (i == from ? "" : "\n") + kLines[i - 1];
    return text;
}

class FindSelectTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        window = test::showWindow();
        window->resize(700, 500);
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        std::string text;
        for (const std::string& line : kLines) text += line + "\r\n";
        open(test::writeTempFile("Compute.bas", text));
    }
    void TearDown() override {
        test::closeWindow(window);
        ProgramTest::TearDown();
    }
    void open(const std::string& path) {
        ui.openAnswers.push_back(std::vector<std::string>{path});
        window->action(kMnuFilOpen)->trigger();
        QApplication::processEvents();
    }
    PicShow* view() const { return window->picShow(); }
    FindBar* bar() const { return window->findBar(); }
    std::string status() const { return window->lblStatus()->text().toStdString(); }
    std::string clipboard() const { return QApplication::clipboard()->text().toStdString(); }
    void key(QWidget* to, Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::keyClick(to, k, m);
        QApplication::processEvents();
    }
    void copy() { key(view(), Qt::Key_C, Qt::ControlModifier); }
    // The pixel at a place in a line, on the screen line where it is drawn.
    QPoint pixelOf(std::int32_t record, std::int32_t column, bool lastLine = false) const {
        const DrawnStretch* at = nullptr;
        for (const DrawnStretch& s : viewMap().stretches)
            if (s.record == record && column >= s.column && column <= s.column + s.length && (!at || lastLine)) at = &s;
        EXPECT_NE(at, nullptr) << record << ":" << column;
        if (!at) return {};
        float x = stretchEdges(*at)[static_cast<std::size_t>(column - at->column)];
        float y = (at->top + at->bottom) / 2;
        return {qRound(x / window->picDisplay().twipsPerPixelX()), qRound(y / window->picDisplay().twipsPerPixelY())};
    }
    void mouse(QEvent::Type type, QPoint at, Qt::KeyboardModifiers m = Qt::NoModifier) {
        Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view()->mapToGlobal(at), Qt::LeftButton, held, m);
        QApplication::sendEvent(view(), &event);
        QApplication::processEvents();
    }
    std::string selectionShown() const {
        QString text;
        for (const QRect& r : view()->selectionBoxes()) text += QString("%1,%2 ").arg(r.left()).arg(r.top());
        return text.toStdString();
    }

    std::unique_ptr<HlydWindow> window;
};

TEST_F(FindSelectTest, FindBarFindsNextAndPreviousWrapsAndCloses) {
    ASSERT_FALSE(bar()->isVisible());
    key(view(), Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(bar()->isVisible());
    EXPECT_TRUE(bar()->field()->hasFocus());
    QTest::keyClicks(bar()->field(), "total");
    bar()->findChild<QCheckBox*>("chkWholeWord")->setChecked(true);
    key(bar()->field(), Qt::Key_Return);
    std::optional<TextHit> hit = currentHit();
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->record, 3);
    EXPECT_EQ(status(), "Found on line 3");
    EXPECT_FALSE(view()->foundBoxes().isEmpty());  // lit in the view

    key(view(), Qt::Key_F3);
    EXPECT_EQ(currentHit()->record, 4);
    key(view(), Qt::Key_F3);
    key(view(), Qt::Key_F3);
    EXPECT_EQ(currentHit()->record, 6);
    EXPECT_EQ(currentHit()->column, 12);
    key(view(), Qt::Key_F3);
    EXPECT_EQ(currentHit()->record, 3);
    EXPECT_EQ(status(), "Passed the end of the file; continued from the top");
    key(view(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(currentHit()->record, 6);
    EXPECT_EQ(status(), "Passed the top of the file; continued from the end");
    key(bar()->field(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(currentHit()->column, 4);

    // The hit is the selection: Ctrl+C copies it.
    copy();
    EXPECT_EQ(clipboard(), "total");

    // Whole word off finds "total" inside "subtotal"-like names too; match case passes "Total".
    bar()->findChild<QCheckBox*>("chkWholeWord")->setChecked(false);
    bar()->field()->setText("TOTAL");
    key(bar()->field(), Qt::Key_Return);
    EXPECT_EQ(currentHit()->record, 6);  // any case
    bar()->findChild<QCheckBox*>("chkMatchCase")->setChecked(true);
    key(bar()->field(), Qt::Key_Return);
    EXPECT_EQ(status(), "Not found: TOTAL");

    key(bar()->field(), Qt::Key_Escape);
    EXPECT_FALSE(bar()->isVisible());
    EXPECT_TRUE(view()->hasFocus());
    key(view(), Qt::Key_F, Qt::ControlModifier);
    // The selection (the place found last) becomes the text, ready to be typed over.
    EXPECT_EQ(bar()->field()->selectedText(), "total");
    view()->setFocus();
    key(view(), Qt::Key_Escape);
    EXPECT_FALSE(bar()->isVisible());
}

TEST_F(FindSelectTest, ADragCopiesTheLinesAsTheyStandWithoutLayoutOrWrapMarks) {
    // From the margin left of the indented block's first line to the end of the wrapped line.
    mouse(QEvent::MouseButtonPress, QPoint(2, pixelOf(3, 1).y()));
    mouse(QEvent::MouseMove, pixelOf(5, 3));
    mouse(QEvent::MouseMove, pixelOf(6, static_cast<std::int32_t>(kLong.size()), true));
    mouse(QEvent::MouseButtonRelease, pixelOf(6, static_cast<std::int32_t>(kLong.size()), true));
    EXPECT_FALSE(view()->selectionBoxes().isEmpty());
    copy();
    std::string expected = joined(3, 6);  // the tab that starts the first line included
#ifdef Q_OS_WIN
    for (std::size_t at = 0; (at = expected.find('\n', at)) != std::string::npos; at += 2) expected.insert(at, "\r");
#endif
    EXPECT_EQ(clipboard(), expected);
    EXPECT_EQ(clipboard().find("\xC2\xBB"), std::string::npos);  // no wrap mark

    // Shift+click moves the end; Shift+arrows move it further.
    mouse(QEvent::MouseButtonPress, pixelOf(4, 3));
    mouse(QEvent::MouseButtonRelease, pixelOf(4, 3));
    mouse(QEvent::MouseButtonPress, pixelOf(4, 8), Qt::ShiftModifier);
    mouse(QEvent::MouseButtonRelease, pixelOf(4, 8), Qt::ShiftModifier);
    copy();
    EXPECT_EQ(clipboard(), "total");
    key(view(), Qt::Key_Right, Qt::ShiftModifier);
    key(view(), Qt::Key_Right, Qt::ShiftModifier);
    copy();
    EXPECT_EQ(clipboard(), "total =");
    key(view(), Qt::Key_Down, Qt::ShiftModifier);
    copy();
    EXPECT_EQ(clipboard(), "total = 0   ' reset\n\tEnd If");

    key(view(), Qt::Key_A, Qt::ControlModifier);
    copy();
    EXPECT_EQ(clipboard(), joined(1, kLines.size()));
}

TEST_F(FindSelectTest, ThePopupCopiesAndFollowsTheSelection) {
    auto* popup = window->findChild<QMenu*>(kMnuPopupMenu);
    QAction* copyItem = popup->actions().front();
    EXPECT_EQ(copyItem->text(), "Copy");
    EXPECT_FALSE(copyItem->isEnabled());  // nothing selected yet
    mouse(QEvent::MouseButtonPress, pixelOf(7, 0));
    mouse(QEvent::MouseMove, pixelOf(7, 3));
    mouse(QEvent::MouseButtonRelease, pixelOf(7, 3));
    EXPECT_TRUE(copyItem->isEnabled());
    QApplication::clipboard()->clear();
    copyItem->trigger();
    EXPECT_EQ(clipboard(), "End");
}

TEST_F(FindSelectTest, ADoubleClickTakesAWordAndADragPastTheFootScrollsOn) {
    mouse(QEvent::MouseButtonPress, pixelOf(6, 22));
    mouse(QEvent::MouseButtonRelease, pixelOf(6, 22));
    mouse(QEvent::MouseButtonDblClick, pixelOf(6, 22));
    copy();
    EXPECT_EQ(clipboard(), "alpha");

    std::string text;
    for (int n = 1; n <= 400; ++n) text += "    v" + std::to_string(n) + " = " + std::to_string(n) + "\r\n";
    open(test::writeTempFile("Long.bas", text));
    ASSERT_EQ(emitterState().FirstRecord, 1);
    mouse(QEvent::MouseButtonPress, pixelOf(2, 4));
    mouse(QEvent::MouseMove, QPoint(20, view()->height() + 30));
    mouse(QEvent::MouseMove, QPoint(20, view()->height() + 40));
    EXPECT_EQ(emitterState().FirstRecord, 3);
    // Held there without moving, the view goes on scrolling.
    QTest::qWait(400);
    mouse(QEvent::MouseButtonRelease, QPoint(20, view()->height() + 40));
    EXPECT_GT(emitterState().FirstRecord, 3);
    copy();
    EXPECT_LE(clipboard().find("v2 = 2\n    v3 = 3\n"), 4u) << clipboard().substr(0, 40);
}

TEST_F(FindSelectTest, FindInAllOpenFilesListsHitsAndJumpsToOne) {
    open(test::writeTempFile("Other.bas", "Sub Other()\r\n    total = 1\r\nEnd Sub\r\n"));
    ASSERT_EQ(oFile().Count(), 2);
    key(view(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(bar()->field(), "total");
    bar()->findChild<QCheckBox*>("chkWholeWord")->setChecked(true);
    window->action(kMnuEditFindAll)->trigger();
    QApplication::processEvents();
    QTreeWidget* list = window->findHits()->list();
    ASSERT_TRUE(window->findHits()->isVisible());
    ASSERT_EQ(list->topLevelItemCount(), 5);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "Compute.bas");
    EXPECT_EQ(list->topLevelItem(4)->text(0), "Other.bas");
    EXPECT_EQ(list->topLevelItem(4)->text(1), "2");
    EXPECT_EQ(list->topLevelItem(4)->text(2), "total = 1");
    emit list->itemActivated(list->topLevelItem(1), 0);
    QApplication::processEvents();
    EXPECT_EQ(window->windowTitle(), "Halyard - Compute.bas");
    EXPECT_EQ(currentHit()->record, 4);
    EXPECT_FALSE(view()->foundBoxes().isEmpty());
}

}  // namespace
}  // namespace hlyd
