#include "platform/qt/print_faces.h"

#include <QFontMetricsF>
#include <QImage>

#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

constexpr double kInchesPerMetre = 1.0 / 0.0254;

// A device of the printer's resolution to measure on: the printer itself may not be open yet.
QImage measuringDevice(int dpi) {
    QImage image(1, 1, QImage::Format_RGB32);
    image.setDotsPerMeterX(static_cast<int>(dpi * kInchesPerMetre + 0.5));
    image.setDotsPerMeterY(static_cast<int>(dpi * kInchesPerMetre + 0.5));
    return image;
}

QFont fontOf(const FaceKey& key) {
    QFont font;
    font.setFamilies({key.family});
    font.setPointSizeF(key.points);
    font.setBold(key.bold);
    font.setItalic(key.italic);
    font.setUnderline(key.underline);
    font.setStrikeOut(key.strikeOut);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    return font;
}

}  // namespace

size_t qHash(const FaceKey& key, size_t seed) {
    int style = key.bold | key.italic << 1 | key.underline << 2 | key.strikeOut << 3;
    return qHashMulti(seed, key.family, key.points, style);
}

PrintFaces::PrintFaces(int dotsPerInch) : dpi_(dotsPerInch) {}

const PrintFace& PrintFaces::face(const FaceKey& key) {
    auto found = byKey_.constFind(key);
    if (found != byKey_.constEnd()) return *faces_[*found];
    auto made = std::make_unique<PrintFace>();
    made->index = static_cast<std::uint16_t>(faces_.size());
    made->font = fontOf(key);
    QImage device = measuringDevice(dpi_);
    QFontMetricsF metrics(made->font, &device);
    made->ascent = metrics.ascent();
    made->lineSpacing = metrics.lineSpacing();
    for (int c = 0; c < 256; ++c) {
        char byte = static_cast<char>(c);
        made->advance[static_cast<std::size_t>(c)] = metrics.horizontalAdvance(fromCp1252(std::string_view(&byte, 1)));
    }
    byKey_.insert(key, made->index);
    faces_.push_back(std::move(made));
    return *faces_.back();
}

}  // namespace hlyd
