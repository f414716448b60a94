// The Ui port on Qt: the buttons a message box offers and the one Enter answers, and the filter
// pairs of the file dialogs.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

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

// Members of one folder differ only in their names: the name comes first, the folder after it;
// a typed letter goes to the first name it begins; the size the user leaves is the next one's.
TEST(QtUi, TheFileListShowsNamesFirstJumpsByLetterAndKeepsItsSize) {
    QtUi ui;
    ui.fileListSize = QSize(520, 340);
    QSize opened;
    QStringList names, folders;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = dialog->size();
        auto* list = dialog->findChild<QTreeWidget*>("lstFiles");
        ASSERT_NE(list, nullptr);
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            names << list->topLevelItem(row)->text(0);
            folders << list->topLevelItem(row)->text(1);
        }
        QTest::keyClick(list, Qt::Key_M);
        dialog->resize(600, 400);
        dialog->accept();
    });
    std::vector<std::string> paths{"/work/big/project/Alpha.bas", "/work/big/project/Beta.cls",
                                   "/work/big/project/Main.frm", "/work/big/other/Zeta.bas"};
    EXPECT_EQ(ui.chooseFromList("Files", paths), std::optional<int>(2));
    EXPECT_EQ(opened, QSize(520, 340));
    EXPECT_EQ(names, QStringList({"Alpha.bas", "Beta.cls", "Main.frm", "Zeta.bas"}));
    EXPECT_EQ(folders.front(), "/work/big/project");
    EXPECT_EQ(ui.fileListSize, QSize(600, 400));
}

}  // namespace
}  // namespace hlyd
