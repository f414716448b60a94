#pragma once
// The drawn strip of macro buttons of the print options: rows of captions (one when there is
// room, more in a narrower dialog), a tip for each, and a click that names the button. It never takes the focus, so that the header or footer
// section being edited keeps it.
#include <QWidget>
#include <functional>

namespace hlyd {

class MacroStrip : public QWidget {
public:
    explicit MacroStrip(std::function<void(int button)> clicked, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    // The button under a point of the strip, -1 when none.
    int buttonAt(const QPoint& point) const;
    QRect buttonRect(int button) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    int buttonWidth() const;
    int rowHeight() const;
    // Buttons to a row at a width: the rows as even as fifteen buttons allow.
    int perRow(int width) const;
    std::function<void(int)> clicked_;
};

}  // namespace hlyd
