#include "platform/qt/print_faces.h"

#include <QFont>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

QFont fontOf(const FaceKey& key) {
    QFont font;
    font.setFamilies({key.family});
    font.setPointSizeF(key.points);
    font.setBold(key.bold);
    font.setItalic(key.italic);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    return font;
}

// Glyphs and advances of the font's design, in font units: a font at its own em size.
void fillCharacters(PrintFace& face, QRawFont design) {
    design.setPixelSize(design.unitsPerEm());
    double scale = face.pixelSize / design.unitsPerEm();
    for (int c = 0x20; c < 256; ++c) {
        char byte = static_cast<char>(c);
        QList<quint32> glyphs = design.glyphIndexesForString(fromCp1252(std::string_view(&byte, 1)));
        if (glyphs.size() != 1) continue;
        QList<QPointF> advances = design.advancesForGlyphIndexes(glyphs);
        face.glyph[static_cast<std::size_t>(c)] = glyphs[0];
        face.advance[static_cast<std::size_t>(c)] = advances.value(0).x() * scale;
    }
    bool alike = std::all_of(face.advance.begin() + 0x20, face.advance.end(),
                             [&](double a) { return a == face.advance[0x20]; });
    face.fixedAdvance = alike ? face.advance[0x20] : 0;
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
    made->key = key;
    made->pixelSize = key.points * dpi_ / 72.0;
    QRawFont raw = QRawFont::fromFont(fontOf(key));
    fillCharacters(*made, raw);
    raw.setPixelSize(made->pixelSize);
    made->raw = raw;
    made->ascent = raw.ascent();
    // Lines on paper stand at most 1.1 times the type size apart, as a typewriter's and a plain text
    // printer's do. The box of the common monospaced faces (1.13 of the size, more for some) spends
    // a line in thirty on room that only an accented capital under a descender uses; white is not
    // painted on paper, so no line covers its neighbour's descenders.
    made->lineSpacing = std::min(raw.ascent() + raw.descent() + raw.leading(), 1.1 * made->pixelSize);
    made->underlinePosition = raw.underlinePosition();
    made->lineThickness = std::max(raw.lineThickness(), 1.0);
    byKey_.insert(key, made->index);
    faces_.push_back(std::move(made));
    return *faces_.back();
}

}  // namespace hlyd
