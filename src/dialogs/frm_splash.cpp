#include "dialogs/frm_splash.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "base/app_info.h"
#include "platform/qt/qt_text.h"

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
    : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
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
    QApplication::processEvents();
}

}  // namespace hlyd
