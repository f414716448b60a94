#include "dialogs/macro_strip.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "platform/qt/qt_text.h"
#include "models/print_options_macros.h"

namespace hlyd {

namespace {
constexpr int kPadding = 3;
// Three rows at the narrowest: the dialog then fits a small screen.
constexpr int kFewestPerRow = 5;
}  // namespace

MacroStrip::MacroStrip(std::function<void(int)> clicked, QWidget* parent)
    : QWidget(parent), clicked_(std::move(clicked)) {
    setObjectName("picMacros");
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

// Every button as wide as the widest caption, so that the strip reads as one row of equals.
int MacroStrip::buttonWidth() const {
    int widest = 0;
    for (const std::string& caption : macroButtonCaptions())
        widest = std::max(widest, fontMetrics().horizontalAdvance(fromUtf8(caption)));
    return widest + 2 * kPadding;
}

int MacroStrip::rowHeight() const { return fontMetrics().height() + 4 * kPadding; }

QSize MacroStrip::sizeHint() const { return {buttonWidth() * kMacroButtons, rowHeight()}; }

QSize MacroStrip::minimumSizeHint() const { return {buttonWidth() * kFewestPerRow, rowHeight()}; }

int MacroStrip::perRow(int width) const {
    int fit = std::clamp(width / std::max(buttonWidth(), 1), 1, kMacroButtons);
    int rows = (kMacroButtons + fit - 1) / fit;
    return (kMacroButtons + rows - 1) / rows;
}

int MacroStrip::heightForWidth(int width) const {
    int across = perRow(width);
    return (kMacroButtons + across - 1) / across * rowHeight();
}

QRect MacroStrip::buttonRect(int button) const {
    int across = perRow(width());
    int w = std::max(width() / across, 1);
    return {button % across * w, button / across * rowHeight(), w, rowHeight()};
}

int MacroStrip::buttonAt(const QPoint& point) const {
    for (int i = 0; i < kMacroButtons; ++i)
        if (buttonRect(i).contains(point)) return i;
    return -1;
}

void MacroStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int i = 0; i < kMacroButtons; ++i) {
        QStyleOptionButton option;
        option.initFrom(this);
        option.rect = buttonRect(i);
        option.text = fromUtf8(macroButtonCaptions()[static_cast<std::size_t>(i)]);
        option.state |= QStyle::State_Raised;
        style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    }
}

void MacroStrip::mousePressEvent(QMouseEvent* event) {
    int button = buttonAt(event->position().toPoint());
    if (button >= 0 && clicked_) clicked_(button);
}

bool MacroStrip::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto* help = static_cast<QHelpEvent*>(event);
    int button = buttonAt(help->pos());
    if (button < 0) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    QToolTip::showText(help->globalPos(), fromUtf8(macroButtonTip(button)), this, buttonRect(button));
    return true;
}

}  // namespace hlyd
