#include "dialogs/pic_show.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace hlyd {

int classicKeyCode(int qtKey) {
    switch (qtKey) {
        case Qt::Key_PageUp: return 33;
        case Qt::Key_PageDown: return 34;
        case Qt::Key_End: return 35;
        case Qt::Key_Home: return 36;
        case Qt::Key_Left: return 37;
        case Qt::Key_Up: return 38;
        case Qt::Key_Right: return 39;
        case Qt::Key_Down: return 40;
        default: return 0;
    }
}

int classicShift(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers & Qt::ShiftModifier) shift |= 1;
    if (modifiers & Qt::ControlModifier) shift |= 2;
    if (modifiers & Qt::AltModifier) shift |= 4;
    return shift;
}

PicShow::PicShow(QWidget* parent) : QWidget(parent) {
    setObjectName("picShow");
    setFocusPolicy(Qt::StrongFocus);
    // The picture covers every pixel, so nothing needs erasing first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    dragRepeat_ = new QTimer(this);
    dragRepeat_->setInterval(60);
    connect(dragRepeat_, &QTimer::timeout, this, &PicShow::followHeldDrag);
}

void PicShow::followHeldDrag() {
    bool outside = dragAt_.y() < 0 || dragAt_.y() >= height();
    if (!outside || !held_) return dragRepeat_->stop();
    emit draggedTo(dragAt_);
}

void PicShow::setPicture(const QImage& image) {
    picture_ = image;
    update();
}

// Lit boxes are laid over the text, translucent, so that the element colours stay readable under
// them: the selection in the system's highlight colour, the place found in amber.
void PicShow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (!picture_.isNull()) painter.drawImage(QPoint(0, 0), picture_);
    QColor selected = palette().highlight().color();
    selected.setAlpha(90);
    for (const QRect& box : selection_) painter.fillRect(box, selected);
    for (const QRect& box : found_) {
        painter.fillRect(box, QColor(255, 170, 0, 110));
        painter.setPen(QColor(230, 120, 0));
        painter.drawRect(box.adjusted(0, 0, -1, -1));
    }
}

void PicShow::setHighlights(const QVector<QRect>& selection, const QVector<QRect>& found) {
    if (selection == selection_ && found == found_) return;
    selection_ = selection;
    found_ = found;
    update();
}

void PicShow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    setFocus(Qt::MouseFocusReason);
    if (event->modifiers() & Qt::ControlModifier) {
        emit nameClickedAt(event->position().toPoint());
        return event->accept();
    }
    held_ = true;
    emit pressedAt(event->position().toPoint(), event->modifiers() & Qt::ShiftModifier);
    event->accept();
}

void PicShow::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return QWidget::mouseMoveEvent(event);
    dragAt_ = event->position().toPoint();
    emit draggedTo(dragAt_);
    if (dragAt_.y() < 0 || dragAt_.y() >= height()) dragRepeat_->start();
    event->accept();
}

void PicShow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) held_ = false;
    dragRepeat_->stop();
    QWidget::mouseReleaseEvent(event);
}

void PicShow::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QWidget::mouseDoubleClickEvent(event);
    emit doubleClickedAt(event->position().toPoint());
    event->accept();
}

void PicShow::keyPressEvent(QKeyEvent* event) {
    int code = classicKeyCode(event->key());
    if (code == 0) return QWidget::keyPressEvent(event);
    bool arrow = code >= 37 && code <= 40;
    if (arrow && event->modifiers() == Qt::ShiftModifier) {
        emit selectionKey(code);
        event->accept();
        return;
    }
    emit keyDown(code, classicShift(event->modifiers()));
    event->accept();
}

void PicShow::wheelEvent(QWheelEvent* event) {
    emit wheelTurned(event->angleDelta().y(), event->pixelDelta().y(), event->modifiers() & Qt::ControlModifier);
    event->accept();
}

void PicShow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit resized(size());
}

void PicShow::contextMenuEvent(QContextMenuEvent* event) { emit contextMenuAsked(event->globalPos()); }

}  // namespace hlyd
