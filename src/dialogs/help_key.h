#pragma once
// F1 opens the help page of the window or dialog that has the focus. Each form names its page;
// a form without one leaves the key to the window that opened it.
#include <QObject>
#include <string>

class QWidget;

namespace hlyd {

void setHelpPage(QWidget* form, const std::string& page);

// Watches every key of the application while it lives.
class HelpKey : public QObject {
public:
    explicit HelpKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace hlyd
