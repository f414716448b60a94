#pragma once
// The list of open files (frmFileList) to choose one from, with OK and Cancel; a double click
// chooses. Each file shows its name first and its folder after it, so that the members of a large
// project are told apart at a glance; typing a name's first letters goes to it. The user may
// resize the list, and its size is kept for the next time.
#include <QDialog>
#include <QSize>
#include <QStringList>

class QTreeWidget;

namespace hlyd {

class ListDialog : public QDialog {
    Q_OBJECT
public:
    ListDialog(QWidget* parent, const QString& title, const QStringList& paths);
    int chosenRow() const;
    // The chosen position from 0, or -1 after Cancel or closing. `size` is the size to open at
    // (none when empty) and comes back as the size the user left it at.
    static int choose(QWidget* parent, const QString& title, const QStringList& paths, QSize& size);

private:
    QTreeWidget* lstFiles_;
};

}  // namespace hlyd
