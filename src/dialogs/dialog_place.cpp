#include "dialogs/dialog_place.h"

#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <algorithm>

namespace hlyd {

namespace {

QRect availableArea(const QWidget* owner) {
    QScreen* screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
}

QSize fittedSize(QWidget& dialog, const QRect& area) {
    QSize wanted = dialog.sizeHint();
    QSize least = dialog.minimumSizeHint();
    int width = std::max(least.width(), std::min(wanted.width(), area.width() * 2 / 3));
    QLayout* layout = dialog.layout();
    int height = layout && layout->hasHeightForWidth() ? layout->totalHeightForWidth(width) : wanted.height();
    return {width, std::min(std::max(height, least.height()), area.height())};
}

}  // namespace

void fitAndCentre(QWidget& dialog, const QWidget* owner) {
    QRect area = availableArea(owner);
    QSize size = fittedSize(dialog, area);
    dialog.resize(size);
    QPoint centre = owner && owner->isVisible() ? owner->frameGeometry().center() : area.center();
    QRect placed(QPoint(0, 0), size);
    placed.moveCenter(centre);
    placed.moveLeft(std::clamp(placed.left(), area.left(), std::max(area.left(), area.right() - size.width())));
    placed.moveTop(std::clamp(placed.top(), area.top(), std::max(area.top(), area.bottom() - size.height())));
    dialog.move(placed.topLeft());
}

}  // namespace hlyd
