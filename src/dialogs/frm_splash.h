#pragma once
// The splash (frmSplash): the program's name and version, and whom this copy belongs to, in the
// middle of the screen while the program starts. A key or a click on it ends the start's wait, and
// it keeps itself above the main window that comes up behind it.
#include <QDialog>
#include <string>

namespace hlyd {

class FrmSplash : public QDialog {
    Q_OBJECT
public:
    FrmSplash(const std::string& user, const std::string& company);
    // Centred on the screen, shown and painted at once: the start that follows keeps the event
    // loop busy.
    void showCentred();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void raiseAboveOthers();
};

}  // namespace hlyd
