#include "platform/qt/image_surface.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/classic_colour.h"
#include "platform/qt/classic_fonts.h"
#include "platform/qt/font_configuration.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/screen_metrics.h"

namespace hlyd {

namespace {

constexpr double kInchesPerMetre = 1.0 / 0.0254;
constexpr int kTwipsPerInch = 1440;
const char* const kDefaultFont = "MS Sans Serif";

}  // namespace

ImageSurface::ImageSurface(QSize pixels, int twipsPerPixelX, int twipsPerPixelY)
    : tppX_(twipsPerPixelX > 0 ? twipsPerPixelX : screenTwipsPerPixelX()),
      tppY_(twipsPerPixelY > 0 ? twipsPerPixelY : screenTwipsPerPixelY()) {
    font_.setStyleStrategy(QFont::PreferAntialias);
    setFontName(kDefaultFont);
    font_.setPointSizeF(fontSize_);
    resizePixels(pixels);
}

ImageSurface::~ImageSurface() = default;

void ImageSurface::resizePixels(QSize pixels) {
    painter_.reset();
    image_ = QImage(pixels.expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    // The picture's resolution is the one twips are counted in, so that a point here is a point
    // in every length the layout computes.
    image_.setDotsPerMeterX(static_cast<int>(kTwipsPerInch / tppX_ * kInchesPerMetre + 0.5));
    image_.setDotsPerMeterY(static_cast<int>(kTwipsPerInch / tppY_ * kInchesPerMetre + 0.5));
    fontChanged();
    cls();
}

const QImage& ImageSurface::image() {
    painter_.reset();
    return image_;
}

// Text drawn and measured through Qt's font database needs the font configuration.
QPainter& ImageSurface::painter() {
    if (!painter_) {
        useFontConfiguration();
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::TextAntialiasing, true);
        painter_->setRenderHint(QPainter::Antialiasing, false);
        painterFontStale_ = true;
    }
    return *painter_;
}

const QFontMetricsF& ImageSurface::metrics() {
    if (!metrics_) {
        useFontConfiguration();
        metrics_.emplace(font_, &image_);
    }
    return *metrics_;
}

const QColor& ImageSurface::colourOf(std::uint32_t colour) {
    if (colour != cachedColourKey_) {
        cachedColour_ = classicColour(colour);
        cachedColourKey_ = colour;
    }
    return cachedColour_;
}

void ImageSurface::setFontName(const std::string& name) {
    ResolvedFamily resolved = resolveFamily(fromUtf8(name));
    fontNameRead_ = toUtf8(resolved.readBack);
    if (font_.family() == resolved.family) return;
    font_.setFamilies({resolved.family});
    fontChanged();
}

void ImageSurface::setFontSize(double points) {
    if (points <= 0 || points == fontSize_) return;
    fontSize_ = points;
    font_.setPointSizeF(points);
    fontChanged();
}

void ImageSurface::setFontBold(bool on) {
    if (font_.bold() == on) return;
    font_.setBold(on);
    fontChanged();
}

void ImageSurface::setFontItalic(bool on) {
    if (font_.italic() == on) return;
    font_.setItalic(on);
    fontChanged();
}

void ImageSurface::setFontUnderline(bool on) {
    if (font_.underline() == on) return;
    font_.setUnderline(on);
    fontChanged();
}

void ImageSurface::setFontStrikethrough(bool on) {
    if (font_.strikeOut() == on) return;
    font_.setStrikeOut(on);
    fontChanged();
}

void ImageSurface::setForeColor(std::uint32_t colour) { foreColor_ = colour; }

float ImageSurface::textWidth(const std::string& text) {
    return static_cast<float>(metrics().horizontalAdvance(fromCp1252(text)) * tppX_);
}

// A line is whole pixels: the font's ascent and descent each rounded up, and its leading. The
// glyphs are drawn on a baseline a whole pixel down from the line's top, where the rasteriser
// puts them anyway; a fractional line let a line's background cover the pixel row of the
// underscores and descenders of the line above.
int ImageSurface::ascentPixels() { return static_cast<int>(std::ceil(metrics().ascent())); }

int ImageSurface::linePixels() {
    const QFontMetricsF& m = metrics();
    double leading = std::max(0.0, m.leading());
    return ascentPixels() + static_cast<int>(std::ceil(m.descent())) + static_cast<int>(std::lround(leading));
}

float ImageSurface::textHeight(const std::string& text) {
    return static_cast<float>(measuredLines(text) * linePixels() * tppY_);
}

void ImageSurface::print(const std::string& text) {
    QString shown = fromCp1252(text);
    QPainter& p = painter();
    if (painterFontStale_) {
        p.setFont(font_);
        painterFontStale_ = false;
    }
    p.setPen(colourOf(foreColor_));
    QPointF topLeft = toPixels(x_, y_);
    p.drawText(QPointF(topLeft.x(), std::round(topLeft.y()) + ascentPixels()), shown);
    x_ += static_cast<float>(metrics().horizontalAdvance(shown) * tppX_);
}

void ImageSurface::line(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    QPainter& p = painter();
    p.setPen(QPen(colourOf(colour), drawWidth_, Qt::SolidLine, Qt::SquareCap));
    // Pixel centres, so that a line of one pixel covers whole pixels.
    QPointF half(0.5, 0.5);
    QPointF from = toPixels(x1, y1) + half;
    QPointF to = toPixels(x2, y2) + half;
    p.drawLine(from, to);
    x_ = x2;
    y_ = y2;
}

void ImageSurface::filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    QRectF box = QRectF(toPixels(x1, y1), toPixels(x2, y2)).normalized();
    painter().fillRect(box, colourOf(colour));
    x_ = x2;
    y_ = y2;
}

void ImageSurface::cls() {
    painter_.reset();
    image_.fill(colourOf(backColor_));
    x_ = 0;
    y_ = 0;
}

std::vector<std::string> ImageSurface::fonts() const {
    std::vector<std::string> names;
    for (const QString& family : deviceFamilies()) names.push_back(toUtf8(family));
    return names;
}

}  // namespace hlyd
