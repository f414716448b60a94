#include "display/visible_text.h"

#include <algorithm>

#include "platform/byte_words.h"

namespace hlyd {

bool invisibleControl(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; }

std::size_t shownLength(unsigned char c, std::size_t column, std::int32_t tabWidth) {
    if (c == '\t')
        return tabWidth > 0 ? static_cast<std::size_t>(tabWidth) - column % static_cast<std::size_t>(tabWidth) : 1;
    return invisibleControl(c) ? 2 : 1;
}

namespace {

// A tab or a control byte: below a blank, or DEL. Asked of every byte a listing prints.
bool anyShownApart(std::string_view text) { return anyBelowBlank(text, true); }

void fillShown(std::string_view text, std::string& shown, std::size_t column, std::int32_t tabWidth) {
    shown.clear();
    shown.reserve(text.size() + 8);
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (byte == '\t') {
            shown.append(shownLength(byte, column + shown.size(), tabWidth), ' ');
        } else if (invisibleControl(byte)) {
            shown += '^';
            shown += static_cast<char>(byte ^ 0x40);  // 0x01 -> 'A', 0x7F -> '?'
        } else {
            shown += c;
        }
    }
}

}  // namespace

std::string visibleText(std::string_view text, std::size_t column, std::int32_t tabWidth) {
    if (!anyShownApart(text)) return std::string(text);
    std::string shown;
    fillShown(text, shown, column, tabWidth);
    return shown;
}

const std::string& visibleText(std::string_view text, std::string& shown, std::size_t column, std::int32_t tabWidth) {
    if (!anyShownApart(text)) {
        shown.assign(text);
        return shown;
    }
    fillShown(text, shown, column, tabWidth);
    return shown;
}

}  // namespace hlyd
