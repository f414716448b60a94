#include "files/status_progress.h"

#include "files/main_window_model.h"
#include "platform/ui.h"
#include "settings/system_queries.h"

namespace hlyd {

std::string groupedNumber(std::int64_t value) {
    // Not GroupSeparator: that one reads amounts typed in, and falls back to "." where the locale
    // has none, which under the C locale would turn 1234 into "1.234".
    const std::string& separator = localeTexts().DigitGroup;
    if (separator.empty()) return std::to_string(value);
    std::string digits = std::to_string(value < 0 ? -value : value);
    for (int at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3) digits.insert(at, separator);
    return value < 0 ? "-" + digits : digits;
}

void StatusBarUpdate(bool parsing, std::int32_t lines) {
    if (lines % 10 != 0) return;
    mainWindow().lblStatus = std::string(" Lines ") + (parsing ? "parsed: " : "output: ") + groupedNumber(lines) + " ";
    theUi().processEvents();
}

}  // namespace hlyd
