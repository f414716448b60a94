#include "platform/qt/list_dialog.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace hlyd {

ListDialog::ListDialog(QWidget* parent, const QString& title, const QStringList& items)
    : QDialog(parent), lstFiles_(new QListWidget(this)) {
    setWindowTitle(title);
    setObjectName("frmFileList");
    lstFiles_->setObjectName("lstFiles");
    lstFiles_->addItems(items);
    if (!items.isEmpty()) lstFiles_->setCurrentRow(0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstFiles_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstFiles_);
    layout->addWidget(buttons);
}

int ListDialog::chosenRow() const { return lstFiles_->currentRow(); }

int ListDialog::choose(QWidget* parent, const QString& title, const QStringList& items) {
    ListDialog dialog(parent, title, items);
    if (dialog.exec() != QDialog::Accepted) return -1;
    return dialog.chosenRow();
}

}  // namespace hlyd
