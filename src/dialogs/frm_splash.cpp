#include "dialogs/frm_splash.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "base/app_info.h"
#include "platform/qt/qt_text.h"
#include "shell/app_start.h"

namespace hlyd {

namespace {

QLabel* addLine(QVBoxLayout* layout, QWidget* parent, const QString& text, const char* name, int pointSize, bool bold) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    QFont font = label->font();
    font.setPointSize(pointSize);
    font.setBold(bold);
    label->setFont(font);
    layout->addWidget(label);
    return label;
}

}  // namespace

FrmSplash::FrmSplash(const std::string& user, const std::string& company)
    // No stay-on-top hint: a window manager may ignore it, and where it is honoured the splash
    // would stand above every other program too. The splash raises itself above our own window.
    : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmSplash");
    const cAppInfo& app = theAppInfo();
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Box | QFrame::Raised);
    frame->setLineWidth(2);
    auto* inner = new QVBoxLayout(frame);
    inner->setContentsMargins(36, 24, 36, 24);
    addLine(inner, frame, fromUtf8(app.Title), "lblProductName", 24, true);
    addLine(inner, frame, "Version " + fromUtf8(app.Version), "lblVersion", 10, false);
    inner->addSpacing(16);
    addLine(inner, frame, "Licensed to:", "lblLicenseTo", 9, false);
    addLine(inner, frame, fromUtf8(user), "lblUser", 11, true);
    addLine(inner, frame, fromUtf8(company), "lblCompany", 11, false);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);
}

void FrmSplash::showCentred() {
    adjustSize();
    if (QScreen* screen = QApplication::primaryScreen()) {
        QRect area = screen->availableGeometry();
        move(area.center() - rect().center());
    }
    show();
    raise();
    repaint();
    // Watches the whole application: keys go to whichever window is active, and the main window
    // appears and is activated behind the splash's back.
    qApp->installEventFilter(this);
    QApplication::processEvents();
}

void FrmSplash::raiseAboveOthers() {
    raise();
    activateWindow();
    // The main window's input fence filters the application too, and the filter installed last
    // sees an event first: a key aimed at the window must reach this filter before the fence drops it.
    qApp->removeEventFilter(this);
    qApp->installEventFilter(this);
}

bool FrmSplash::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::KeyPress:
            // A box of the start (settings that cannot be kept) needs its keys, and is no splash.
            if (!QApplication::activeModalWidget()) endSplashWait();
            break;
        case QEvent::MouseButtonPress:
            // A click on the splash, or on the window behind it that the user wants to use.
            if (widget && !QApplication::activeModalWidget()) endSplashWait();
            break;
        case QEvent::Show:
        case QEvent::WindowActivate:
            // After the other window is up, or the raise would land below it.
            if (widget && widget->isWindow() && widget != this && !QApplication::activeModalWidget())
                QTimer::singleShot(0, this, &FrmSplash::raiseAboveOthers);
            break;
        default: break;
    }
    return QDialog::eventFilter(watched, event);
}

// Escape would close the splash as a dialog; any key only ends the wait (see the filter).
void FrmSplash::keyPressEvent(QKeyEvent* event) { event->accept(); }

}  // namespace hlyd
