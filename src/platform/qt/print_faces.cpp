#include "platform/qt/print_faces.h"

#include <QFont>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/design_advances.h"
#include "platform/qt/face_source.h"
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

// The glyph of each character from the blank on, all in one look-up (each character is one UTF-16
// unit, so one glyph); none when the font cannot be read.
std::vector<quint32> glyphsOfCharacters(const QRawFont& design) {
    std::string bytes;
    for (int c = 0x20; c < 256; ++c) bytes += static_cast<char>(c);
    QString characters = fromCp1252(bytes);
    std::vector<quint32> glyphs(bytes.size(), 0);
    int count = static_cast<int>(glyphs.size());
    if (!design.glyphIndexesForChars(characters.constData(), count, glyphs.data(), &count) ||
        count != static_cast<int>(glyphs.size()))
        return {};
    return glyphs;
}

// Glyphs and advances of the font's design, in font units: a font at its own em size.
void fillCharacters(PrintFace& face, QRawFont design) {
    design.setPixelSize(design.unitsPerEm());
    double scale = face.pixelSize / design.unitsPerEm();
    std::vector<quint32> glyphs = glyphsOfCharacters(design);
    std::optional<std::vector<double>> fromTable = designAdvances(design, glyphs);
    for (std::size_t at = 0; at < glyphs.size(); ++at) {
        double advance = fromTable ? (*fromTable)[at] : design.advancesForGlyphIndexes({glyphs[at]}).value(0).x();
        face.glyph[at + 0x20] = glyphs[at];
        face.advance[at + 0x20] = advance * scale;
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
    QRawFont raw = rawFaceOf(fontOf(key));
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
