#include "platform/qt/qt_text.h"

#include <QFile>

#include "platform/text_encoding.h"

namespace hlyd {

QString fromCp1252(std::string_view text) {
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    QChar* out = result.data();
    for (unsigned char c : text) *out++ = QChar(c < 0x80 ? c : static_cast<char16_t>(cp1252CodePoint(c)));
    return result;
}

std::string toCp1252(const QString& text) { return utf8ToCp1252(toUtf8(text)); }

std::string toLocalPath(const QString& path) { return QFile::encodeName(path).toStdString(); }
QString fromLocalPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

}  // namespace hlyd
