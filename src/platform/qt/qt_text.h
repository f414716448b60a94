#pragma once
// Text crossing into Qt. Source text is Windows-1252 bytes; our own texts (captions, messages,
// file names) are UTF-8.
#include <QString>
#include <string>
#include <string_view>

namespace hlyd {

QString fromCp1252(std::string_view text);
inline QString fromUtf8(const std::string& text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }
inline std::string toUtf8(const QString& text) { return text.toUtf8().toStdString(); }
// The lines a text measures as: each CR LF inside it starts a further one.
int measuredLines(std::string_view text);
// File names as the file system spells them.
std::string toLocalPath(const QString& path);
QString fromLocalPath(const std::string& path);

}  // namespace hlyd
