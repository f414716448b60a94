// The error report in the window, offscreen: the report reaches frmErrorInfo through the Ui port,
// its text can be copied, and the mail button names where the mail goes.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "dialogs/frm_error_info.h"
#include "platform/qt/qt_ui.h"

namespace hlyd {
namespace {

const std::string kReport = "Sorry, but Halyard has a problem.\nError: 9 in HlydDSEmitRequestedData line: 12";

template <typename T>
T* control(QWidget* form, const char* name) {
    T* found = form->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

TEST(FrmErrorInfo, TheReportArrivesThroughTheUiAndIsCopiedToTheClipboard) {
    QtUi ui;
    setUi(&ui);
    ui.errorReportDialog = showErrorInfo;
    bool seen = false;
    QTimer::singleShot(0, [&seen] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->objectName(), "frmErrorInfo");
        auto* text = control<QPlainTextEdit>(form, "txtError");
        EXPECT_EQ(text->toPlainText().toStdString(), kReport);
        EXPECT_TRUE(text->isReadOnly());
        EXPECT_EQ(control<QPushButton>(form, "cmdEMail")->text(), "Email to support@halyard.invalid");
        QGuiApplication::clipboard()->clear();
        control<QPushButton>(form, "cmdAll")->click();
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), kReport);
        EXPECT_EQ(control<QLabel>(form, "lblStatus")->text(), "Message copied to clipboard");
        seen = true;
        QTest::keyClick(form, Qt::Key_Return);  // Enter is OK, after a copy as before it
    });
    ui.errorReport(kReport);  // returns when the dialog is closed
    EXPECT_TRUE(seen);
    setUi(nullptr);
}

}  // namespace
}  // namespace hlyd
