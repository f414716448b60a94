#include "dialogs/find_hits.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QTreeWidget>

#include "platform/qt/qt_text.h"

namespace hlyd {

FindHits::FindHits(QWidget* parent) : QDockWidget("Find Results", parent) {
    setObjectName("FindResults");
    setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    list_ = new QTreeWidget(this);
    list_->setObjectName("lstFindResults");
    list_->setColumnCount(3);
    list_->setHeaderLabels({"File", "Line", "Text"});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setStretchLastSection(true);
    setWidget(list_);
    connect(list_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        auto index = static_cast<std::size_t>(list_->indexOfTopLevelItem(item));
        if (index < hits_.size()) emit hitActivated(hits_[index]);
    });
}

void FindHits::showHits(const QString& query, std::vector<FileHit> hits) {
    hits_ = std::move(hits);
    list_->clear();
    QList<QTreeWidgetItem*> items;
    for (const FileHit& hit : hits_) {
        QString line = fromCp1252(hit.line).trimmed();
        auto* item = new QTreeWidgetItem(
                {QFileInfo(fromUtf8(hit.fileName)).fileName(), QString::number(hit.hit.record), line});
        item->setToolTip(0, fromUtf8(hit.fileName));
        items << item;
    }
    list_->addTopLevelItems(items);
    list_->resizeColumnToContents(0);
    list_->resizeColumnToContents(1);
    setWindowTitle(QString("Find Results: %1 for \"%2\"").arg(hits_.size()).arg(query));
    show();
    raise();
}

}  // namespace hlyd
