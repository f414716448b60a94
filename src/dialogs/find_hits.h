#pragma once
// The places of a text in all open files, as a list (file, line, text) under the view; activating
// a place shows it.
#include <QDockWidget>
#include <vector>

#include "display/view_find.h"

class QTreeWidget;

namespace hlyd {

class FindHits : public QDockWidget {
    Q_OBJECT
public:
    explicit FindHits(QWidget* parent = nullptr);
    void showHits(const QString& query, std::vector<FileHit> hits);
    QTreeWidget* list() const { return list_; }

signals:
    void hitActivated(const FileHit& hit);

private:
    QTreeWidget* list_ = nullptr;
    std::vector<FileHit> hits_;
};

}  // namespace hlyd
