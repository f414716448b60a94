#pragma once
// The visible picture of the view (picShow): it shows the last finished image of the hidden
// picture, holds the focus and passes the keys on as the classic key codes, and wheel turns as
// they come.
#include <QImage>
#include <QRect>
#include <QTimer>
#include <QVector>
#include <QWidget>

namespace hlyd {

class PicShow : public QWidget {
    Q_OBJECT
public:
    explicit PicShow(QWidget* parent = nullptr);
    // The finished image becomes the picture in one step.
    void setPicture(const QImage& image);
    const QImage& picture() const { return picture_; }
    // The reader's selection and the place found, lit over the picture in pixels.
    void setHighlights(const QVector<QRect>& selection, const QVector<QRect>& found);
    const QVector<QRect>& selectionBoxes() const { return selection_; }
    const QVector<QRect>& foundBoxes() const { return found_; }

signals:
    void keyDown(int keyCode, int shift);
    // Eighths of a degree, or a touchpad's pixels (0 when the platform gives none).
    void wheelTurned(int angleEighths, int pixels, bool ctrl);
    void resized(QSize pixels);
    void contextMenuAsked(QPoint globalPos);
    // The left button went down (with Shift: the selection is extended) or was dragged.
    void pressedAt(QPoint at, bool extend);
    void nameClickedAt(QPoint at);  // a click with Ctrl held: go to the name's declaration
    void draggedTo(QPoint at);
    void doubleClickedAt(QPoint at);
    // Shift with an arrow key: the classic code of the arrow.
    void selectionKey(int keyCode);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // A drag held above or below the picture goes on as if the pointer moved, so that the view
    // scrolls on under it until the pointer comes back or the button is let go.
    void followHeldDrag();
    QTimer* dragRepeat_ = nullptr;
    QPoint dragAt_;
    bool held_ = false;  // the left button went down here and is not yet let go
    QImage picture_;
    QVector<QRect> selection_;
    QVector<QRect> found_;
};

// The classic code of a key (33 Page Up ... 40 Down), 0 for keys the view does not take.
int classicKeyCode(int qtKey);
// The classic shift state: 1 Shift, 2 Ctrl, 4 Alt.
int classicShift(Qt::KeyboardModifiers modifiers);

}  // namespace hlyd
