#include "platform/qt/list_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "platform/path_parts.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

ListDialog::ListDialog(QWidget* parent, const QString& title, const QStringList& paths)
    : QDialog(parent), lstFiles_(new QTreeWidget(this)) {
    setWindowTitle(title);
    setObjectName("frmFileList");
    setSizeGripEnabled(true);
    lstFiles_->setObjectName("lstFiles");
    lstFiles_->setColumnCount(2);
    lstFiles_->setHeaderLabels({"Name", "Folder"});
    lstFiles_->setRootIsDecorated(false);
    lstFiles_->setUniformRowHeights(true);
    lstFiles_->setAllColumnsShowFocus(true);
    QList<QTreeWidgetItem*> items;
    for (const QString& path : paths) {
        NameAndFolder parts = nameAndFolder(toUtf8(path));
        items.append(new QTreeWidgetItem({fromUtf8(parts.name), fromUtf8(parts.folder)}));
        items.back()->setToolTip(1, path);
    }
    lstFiles_->addTopLevelItems(items);
    lstFiles_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    if (!items.isEmpty()) lstFiles_->setCurrentItem(items.front(), 0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstFiles_, &QTreeWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstFiles_);
    layout->addWidget(buttons);
    lstFiles_->setFocus();
}

int ListDialog::chosenRow() const {
    QTreeWidgetItem* item = lstFiles_->currentItem();
    return item ? lstFiles_->indexOfTopLevelItem(item) : -1;
}

int ListDialog::choose(QWidget* parent, const QString& title, const QStringList& paths, QSize& size) {
    ListDialog dialog(parent, title, paths);
    // Without a size of the user's the list is roomy enough for a project's paths.
    dialog.resize(size.isValid() && !size.isEmpty() ? size : QSize(560, 380));
    int answer = dialog.exec();
    size = dialog.size();
    return answer == QDialog::Accepted ? dialog.chosenRow() : -1;
}

}  // namespace hlyd
