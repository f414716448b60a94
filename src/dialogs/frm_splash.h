#pragma once
// The splash (frmSplash): the program's name and version, and whom this copy belongs to, in the
// middle of the screen while the program starts.
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
};

}  // namespace hlyd
