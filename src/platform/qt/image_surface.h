#pragma once
// The hidden picture (picDisplay): a Surface over an off-screen image, in twips. The layout calls
// it for every token, so font changes are only noted and the metrics of the current font are
// built once per change; the painter stays open until the image is taken.
#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <memory>
#include <optional>

#include "platform/surface.h"

namespace hlyd {

class ImageSurface : public Surface {
public:
    // Twips per pixel as the screen has them unless given.
    explicit ImageSurface(QSize pixels = QSize(1, 1), int twipsPerPixelX = 0, int twipsPerPixelY = 0);
    ~ImageSurface() override;

    // A new size clears the picture.
    void resizePixels(QSize pixels);
    QSize sizePixels() const { return image_.size(); }
    // The finished picture; painting ends first, and begins again with the next drawing call.
    const QImage& image();
    void setBackColor(std::uint32_t colour) { backColor_ = colour; }

    std::string fontName() const override { return fontNameRead_; }
    void setFontName(const std::string& name) override;
    double fontSize() const override { return fontSize_; }
    void setFontSize(double points) override;
    bool fontBold() const override { return font_.bold(); }
    void setFontBold(bool on) override;
    bool fontItalic() const override { return font_.italic(); }
    void setFontItalic(bool on) override;
    bool fontUnderline() const override { return font_.underline(); }
    void setFontUnderline(bool on) override;
    bool fontStrikethrough() const override { return font_.strikeOut(); }
    void setFontStrikethrough(bool on) override;

    std::uint32_t foreColor() const override { return foreColor_; }
    void setForeColor(std::uint32_t colour) override;

    float textWidth(const std::string& text) override;
    float textHeight(const std::string& text) override;

    float currentX() const override { return x_; }
    float currentY() const override { return y_; }
    void setCurrentX(float x) override { x_ = x; }
    void setCurrentY(float y) override { y_ = y; }

    void print(const std::string& text) override;
    void line(float x1, float y1, float x2, float y2, std::uint32_t colour) override;
    void filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) override;

    int drawWidth() const override { return drawWidth_; }
    void setDrawWidth(int pixels) override { drawWidth_ = pixels < 1 ? 1 : pixels; }
    void cls() override;

    float width() const override { return static_cast<float>(image_.width() * tppX_); }
    float height() const override { return static_cast<float>(image_.height() * tppY_); }
    float scaleWidth() const override { return width(); }

    int twipsPerPixelX() const override { return tppX_; }
    int twipsPerPixelY() const override { return tppY_; }
    std::vector<std::string> fonts() const override;

private:
    QPainter& painter();
    const QFontMetricsF& metrics();
    int ascentPixels();
    int linePixels();
    void fontChanged() {
        metrics_.reset();
        painterFontStale_ = true;
    }
    const QColor& colourOf(std::uint32_t colour);
    QPointF toPixels(float x, float y) const { return {x / tppX_, y / tppY_}; }

    QImage image_;
    std::unique_ptr<QPainter> painter_;
    int tppX_;
    int tppY_;
    QFont font_;
    std::string fontNameRead_;
    double fontSize_ = 8;
    std::optional<QFontMetricsF> metrics_;
    bool painterFontStale_ = true;
    std::uint32_t foreColor_ = 0x80000008u;
    std::uint32_t backColor_ = 0x80000005u;
    std::uint32_t cachedColourKey_ = 0xFFFFFFFFu;
    QColor cachedColour_;
    float x_ = 0;
    float y_ = 0;
    int drawWidth_ = 1;
};

}  // namespace hlyd
