#pragma once
// The main window without input while a long operation runs, as a disabled form of old: it looks
// the same and keeps its focus, but keys, clicks and wheel turns aimed at it are dropped. Boxes
// that the operation shows meanwhile are other windows and stay usable.
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace hlyd {

class InputBlocker : public QObject {
    Q_OBJECT
public:
    explicit InputBlocker(QWidget* window) : QObject(window), window_(window) {}
    void setBlocked(bool blocked);
    bool blocked() const { return blocked_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> window_;
    bool blocked_ = false;
};

}  // namespace hlyd
