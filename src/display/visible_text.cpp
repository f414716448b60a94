#include "display/visible_text.h"

#include <algorithm>

namespace hlyd {

bool invisibleControl(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; }

std::size_t shownLength(unsigned char c, std::size_t column, std::int32_t tabWidth) {
    if (c == '\t') return tabWidth > 0 ? static_cast<std::size_t>(tabWidth) - column % static_cast<std::size_t>(tabWidth) : 1;
    return invisibleControl(c) ? 2 : 1;
}

std::string visibleText(std::string_view text, std::size_t column, std::int32_t tabWidth) {
    auto shownApart = [](char c) { return c == '\t' || invisibleControl(static_cast<unsigned char>(c)); };
    if (std::none_of(text.begin(), text.end(), shownApart)) return std::string(text);
    std::string shown;
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
    return shown;
}

}  // namespace hlyd
