#include "display/visible_text.h"

#include <algorithm>

namespace hlyd {

bool invisibleControl(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; }

std::string visibleText(const std::string& text) {
    auto control = [](char c) { return invisibleControl(static_cast<unsigned char>(c)); };
    if (std::none_of(text.begin(), text.end(), control)) return text;
    std::string shown;
    shown.reserve(text.size() + 8);
    for (char c : text) {
        if (!control(c)) {
            shown += c;
            continue;
        }
        shown += '^';
        shown += static_cast<char>(static_cast<unsigned char>(c) ^ 0x40);  // 0x01 -> 'A', 0x7F -> '?'
    }
    return shown;
}

}  // namespace hlyd
