#pragma once
// Text crossing into Qt. Source text is Windows-1252 bytes; our own texts (captions, messages,
// file names) are UTF-8.
#include <QString>
#include <string>
#include <string_view>

#include "platform/surface.h"  // measuredLines

namespace hlyd {

// The dialogs' text both ways: what one loads, the other saves byte for byte. A character
// that Windows-1252 lacks (typed or pasted by the user) becomes "?".
QString fromCp1252(std::string_view text);
std::string toCp1252(const QString& text);
inline QString fromUtf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string toUtf8(const QString& text) { return text.toUtf8().toStdString(); }
// File names as the file system spells them.
std::string toLocalPath(const QString& path);
QString fromLocalPath(const std::string& path);

}  // namespace hlyd
