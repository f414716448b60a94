#pragma once
// A list to choose one line from, with OK and Cancel; a double click chooses. The list of open
// files (frmFileList) is one.
#include <QDialog>
#include <QStringList>

class QListWidget;

namespace hlyd {

class ListDialog : public QDialog {
    Q_OBJECT
public:
    ListDialog(QWidget* parent, const QString& title, const QStringList& items);
    int chosenRow() const;
    // The chosen position from 0, or -1 after Cancel or closing.
    static int choose(QWidget* parent, const QString& title, const QStringList& items);

private:
    QListWidget* lstFiles_;
};

}  // namespace hlyd
