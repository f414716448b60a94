#include "platform/qt/qt_faces.h"

#include <QFont>
#include <QPainterPath>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/design_advances.h"
#include "platform/qt/face_source.h"
#include "platform/qt/glyph_procedure.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

QFont fontOf(const FaceKey& key) {
    QFont font;
    font.setFamilies({fromUtf8(key.family)});
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
}

class QtFaceProgram : public FaceProgram {
public:
    explicit QtFaceProgram(QRawFont raw) : raw_(std::move(raw)) {}
    const QRawFont& raw() const { return raw_; }
    std::string table(const char* tag) const override {
        QByteArray data = raw_.fontTable(tag);
        return std::string(data.constData(), static_cast<std::size_t>(data.size()));
    }
    std::string familyName() const override { return toUtf8(raw_.familyName()); }
    std::string styleName() const override { return toUtf8(raw_.styleName()); }
    int unitsPerEm() const override { return static_cast<int>(raw_.unitsPerEm()); }
    DrawnGlyphs drawnGlyphs(const std::vector<std::pair<std::uint32_t, double>>& glyphAndWidth) const override {
        QRawFont design = raw_;
        design.setPixelSize(1000);
        DrawnGlyphs drawn;
        QRectF box;
        for (auto [glyph, width] : glyphAndWidth) {
            QPainterPath outline = design.pathForGlyph(glyph);
            box = box.united(outline.boundingRect());
            drawn.procedures.push_back(glyphProcedure(outline, width));
        }
        drawn.left = box.left();
        drawn.top = box.top();
        drawn.right = box.right();
        drawn.bottom = box.bottom();
        return drawn;
    }

private:
    QRawFont raw_;
};

}  // namespace

FaceFigures makeQtFace(PrintFace& face) { return fillQtFace(face, rawFaceOf(fontOf(face.key))); }

FaceFigures fillQtFace(PrintFace& face, QRawFont raw) {
    fillCharacters(face, raw);
    raw.setPixelSize(face.pixelSize);
    face.program = std::make_shared<QtFaceProgram>(raw);
    return {raw.ascent(), raw.descent(), raw.leading(), raw.capHeight(), raw.underlinePosition(), raw.lineThickness()};
}

const QRawFont& rawFontOf(const PrintFace& face) { return static_cast<const QtFaceProgram&>(*face.program).raw(); }

}  // namespace hlyd
