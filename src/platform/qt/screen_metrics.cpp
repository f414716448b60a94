#include "platform/qt/screen_metrics.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>

namespace hlyd {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kDefaultDpi = 96;

int dpiOr96(qreal dpi) { return dpi > 1 ? static_cast<int>(std::lround(dpi)) : kDefaultDpi; }
int twipsFor(int dpi) { return static_cast<int>(std::lround(static_cast<double>(kTwipsPerInch) / dpi)); }

}  // namespace

int screenLogicalDpiX() {
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? dpiOr96(screen->logicalDotsPerInchX()) : kDefaultDpi;
}
int screenLogicalDpiY() {
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? dpiOr96(screen->logicalDotsPerInchY()) : kDefaultDpi;
}
int screenTwipsPerPixelX() { return twipsFor(screenLogicalDpiX()); }
int screenTwipsPerPixelY() { return twipsFor(screenLogicalDpiY()); }

QSize screenSizeTwips() {
    QScreen* screen = QGuiApplication::primaryScreen();
    QSize pixels = screen ? screen->size() : QSize(1024, 768);
    return {pixels.width() * screenTwipsPerPixelX(), pixels.height() * screenTwipsPerPixelY()};
}

std::vector<std::array<std::int32_t, 4>> screenAreasInTwips() {
    std::vector<std::array<std::int32_t, 4>> areas;
    const int x = screenTwipsPerPixelX();
    const int y = screenTwipsPerPixelY();
    for (const QScreen* screen : QGuiApplication::screens()) {
        QRect g = screen->geometry();
        areas.push_back({g.x() * x, g.y() * y, g.width() * x, g.height() * y});
    }
    return areas;
}

}  // namespace hlyd
