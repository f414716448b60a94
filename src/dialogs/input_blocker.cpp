#include "dialogs/input_blocker.h"

#include <QApplication>
#include <QEvent>

namespace hlyd {

namespace {

bool isUserInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu: return true;
        default: return false;
    }
}

}  // namespace

void InputBlocker::setBlocked(bool blocked) {
    if (blocked == blocked_) return;
    blocked_ = blocked;
    if (blocked) qApp->installEventFilter(this);
    else qApp->removeEventFilter(this);
}

bool InputBlocker::eventFilter(QObject* watched, QEvent* event) {
    if (!isUserInput(event->type()) || !window_) return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    return widget && widget->window() == window_;
}

}  // namespace hlyd
