// The Ui port on Qt: the buttons a message box offers and the one Enter answers, and the filter
// pairs of the file dialogs.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "platform/qt/list_dialog.h"
#include "platform/qt/qt_ui.h"

namespace hlyd {
namespace {

// Presses Enter in the modal dialog as soon as it is up: the default button answers.
void enterInNextDialog() {
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) box->defaultButton()->click();
        else if (auto* d = qobject_cast<QDialog*>(dialog)) d->accept();
    });
}

TEST(QtUi, EnterAnswersWithTheDefaultButton) {
    QtUi ui;
    MessageBoxRequest request{"Do you want to process it anyway?", "Halyard", MsgButtons::YesNo, MsgIcon::Question, 2};
    enterInNextDialog();
    EXPECT_EQ(ui.messageBox(request), MsgAnswer::No);
    request.buttons = MsgButtons::AbortRetryIgnore;
    request.defaultButton = 3;
    enterInNextDialog();
    EXPECT_EQ(ui.messageBox(request), MsgAnswer::Ignore);
    request.buttons = MsgButtons::OKCancel;
    request.defaultButton = 1;
    enterInNextDialog();
    EXPECT_EQ(ui.messageBox(request), MsgAnswer::OK);
}

TEST(QtUi, FilterPairsBecomeNameFilters) {
    QStringList filters = nameFiltersOf("VB Files (*.frm;*.bas)|*.frm;*.bas|All Files (*.*)|*.*");
    ASSERT_EQ(filters.size(), 2);
    EXPECT_EQ(filters[0], "VB Files (*.frm *.bas)");
    EXPECT_EQ(filters[1], "All Files (*.*)");
    EXPECT_EQ(nameFiltersOf("Code|*.bas").front(), "Code (*.bas)");
    EXPECT_TRUE(nameFiltersOf("").isEmpty());
}

TEST(QtUi, TheListDialogGivesThePositionChosen) {
    QtUi ui;
    enterInNextDialog();
    EXPECT_EQ(ui.chooseFromList("Files", {"a.bas", "b.bas"}), std::optional<int>(0));
}

}  // namespace
}  // namespace hlyd
