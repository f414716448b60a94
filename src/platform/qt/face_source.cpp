#include "platform/qt/face_source.h"

#include <QFile>
#include <optional>

#include "platform/pdf/face_files.h"
#include "platform/qt/font_configuration.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

int styleOf(const QFont& font) { return int(font.bold()) | int(font.italic()) << 1; }

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
// The file's own weight and slant are the ones asked for (fontFilesOf sees to it), so Qt had no
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

}  // namespace

void saveFaceFiles() {
    if (fontConfigurationLoaded()) saveFaceFiles(fontConfigurationSources());
}

QRawFont rawFaceOf(const QFont& font) {
    QString family = font.families().value(0);
    QString remembered = fromUtf8(rememberedFaceFile(toUtf8(family), styleOf(font)));
    if (!remembered.isEmpty()) {
        QRawFont raw = fromFile(remembered);
        if (raw.isValid()) return raw;
    }
    useFontConfiguration();
    QRawFont raw = QRawFont::fromFont(font);
    if (rememberingFaceFiles()) {
        for (const QString& file : fontFilesOf(family, font.bold(), font.italic())) {
            if (!fileHoldsFace(file, raw)) continue;
            rememberFaceFile(toUtf8(family), styleOf(font), toUtf8(file));
            break;
        }
    }
    return raw;
}

}  // namespace hlyd
