#include "platform/qt/print_faces.h"

#include <QFile>
#include <QFont>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/design_advances.h"
#include "platform/qt/face_files.h"
#include "platform/qt/font_configuration.h"
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

int styleOf(const FaceKey& key) { return int(key.bold) | int(key.italic) << 1; }

QRawFont fromFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QRawFont(file.readAll(), 12, QFont::PreferNoHinting);
}

unsigned long be32(const QByteArray& data, qsizetype at) {
    unsigned long value = 0;
    for (qsizetype i = at; i < at + 4; ++i) value = value << 8 | static_cast<unsigned char>(data[i]);
    return value;
}

// The table of that tag in a font file's directory; none when the file has no such table.
std::optional<QByteArray> tableInFile(const QByteArray& file, const char* tag) {
    if (file.size() < 12) return std::nullopt;
    qsizetype count = static_cast<qsizetype>(be32(file, 4) >> 16);
    for (qsizetype record = 12; record + 16 <= file.size() && record < 12 + 16 * count; record += 16) {
        if (file.mid(record, 4) != tag) continue;
        auto offset = static_cast<qsizetype>(be32(file, record + 8)),
             length = static_cast<qsizetype>(be32(file, record + 12));
        if (offset < 0 || length < 0 || offset + length > file.size()) return std::nullopt;
        return file.mid(offset, length);
    }
    return std::nullopt;
}

// Whether a font file holds the face Qt chose: the same tables of names, metrics and characters.
// The file's own weight and slant are the ones asked for (fontFileOf sees to it), so Qt had no
// cause to make up a bold or a slant from it.
bool fileHoldsFace(const QString& path, const QRawFont& chosen) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QByteArray data = file.readAll();
    for (const char* tag : {"head", "hhea", "hmtx", "OS/2", "name", "post", "cmap"}) {
        std::optional<QByteArray> table = tableInFile(data, tag);
        if (!table || *table != chosen.fontTable(tag)) return false;
    }
    return true;
}

// The face from the file an earlier run found for it; else from Qt's font database, and then its
// file is remembered when it holds the very face Qt chose.
QRawFont rawFontOf(const FaceKey& key) {
    QString remembered = rememberedFaceFile(key.family, styleOf(key));
    if (!remembered.isEmpty()) {
        QRawFont raw = fromFile(remembered);
        if (raw.isValid()) return raw;
    }
    useFontConfiguration();
    QRawFont raw = QRawFont::fromFont(fontOf(key));
    if (rememberingFaceFiles()) {
        QString file = fontFileOf(key.family, key.bold, key.italic);
        if (!file.isEmpty() && fileHoldsFace(file, raw)) rememberFaceFile(key.family, styleOf(key), file);
    }
    return raw;
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
    QRawFont raw = rawFontOf(key);
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
