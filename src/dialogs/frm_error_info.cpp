#include "dialogs/frm_error_info.h"

#include <algorithm>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/app_info.h"
#include "dialogs/help_key.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

QLabel* fixedLinesLabel(const ErrorInfoModel& model, QWidget* parent) {
    QStringList lines;
    for (const std::string& line : model.fixedLines()) lines << fromUtf8(line);
    auto* label = new QLabel(lines.join('\n'), parent);
    label->setTextFormat(Qt::PlainText);  // the lines' leading blanks indent them
    return label;
}

// Wide enough for the report's lines up to a sensible measure (longer ones wrap), high enough for
// most of it, in the user's font size.
QPlainTextEdit* reportBox(const ErrorInfoModel& model, QWidget* parent) {
    constexpr int kMostColumns = 100;
    QString text = fromUtf8(model.txtError);
    auto* box = new QPlainTextEdit(text, parent);
    box->setObjectName("txtError");
    box->setReadOnly(true);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    qsizetype columns = 60;
    for (const QString& line : text.split('\n')) columns = std::max(columns, line.size());
    QFontMetrics metrics(box->font());
    int width = metrics.horizontalAdvance(QString(std::min<qsizetype>(columns, kMostColumns) + 2, 'x'));
    box->setMinimumSize(width + box->verticalScrollBar()->sizeHint().width(), metrics.lineSpacing() * 28);
    return box;
}

QPushButton* addButton(QDialogButtonBox* buttons, const char* name, const QString& caption,
                       QDialogButtonBox::ButtonRole role) {
    QPushButton* button = buttons->addButton(caption, role);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

FrmErrorInfo::FrmErrorInfo(const std::string& report, QWidget* parent) : QDialog(parent), model_(report) {
    setObjectName("frmErrorInfo");
    setHelpPage(this, "error-report.html");
    setWindowTitle(fromUtf8(theAppInfo().Title));
    if (parent) setWindowIcon(parent->windowIcon());
    txtError_ = reportBox(model_, this);
    lblStatus_ = new QLabel(this);
    lblStatus_->setObjectName("lblStatus");
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* cmdAll = addButton(buttons, "cmdAll", "&Copy to Clipboard", QDialogButtonBox::ActionRole);
    QPushButton* cmdEMail =
            addButton(buttons, "cmdEMail", fromUtf8(model_.cmdEMailCaption()), QDialogButtonBox::ActionRole);
    QPushButton* cmdOK = addButton(buttons, "cmdOK", "OK", QDialogButtonBox::AcceptRole);
    cmdOK->setDefault(true);
    connect(cmdAll, &QPushButton::clicked, this, &FrmErrorInfo::onCopy);
    connect(cmdEMail, &QPushButton::clicked, this, &FrmErrorInfo::onMail);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fixedLinesLabel(model_, this));
    layout->addWidget(txtError_, 1);
    layout->addWidget(lblStatus_);
    layout->addWidget(buttons);
    // OK first: Enter closes the report, and the user reads before choosing what to do with it.
    setTabOrder(cmdOK, cmdAll);
    setTabOrder(cmdAll, cmdEMail);
    setTabOrder(cmdEMail, txtError_);
    cmdOK->setFocus();
}

void FrmErrorInfo::onCopy() {
    txtError_->selectAll();
    model_.cmdAll_Click();
    lblStatus_->setText(fromUtf8(model_.lblStatus));
}

void FrmErrorInfo::onMail() { model_.cmdEMail_Click(); }

void showErrorInfo(const std::string& report) {
    FrmErrorInfo dialog(report, QApplication::activeWindow());
    dialog.exec();
}

}  // namespace hlyd
