// Single-byte upper case for source text, which is Windows-1252: ASCII letters, the accented
// letters of the upper half, and the four letters that Windows-1252 keeps in 0x80-0x9F.
#include <array>

#include "platform/char_case.h"

namespace hlyd {

namespace {
std::array<unsigned char, 256> buildUpperTable() {
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 256; ++c) table[c] = static_cast<unsigned char>(c);
    for (int c = 'a'; c <= 'z'; ++c) table[c] = static_cast<unsigned char>(c - 32);
    for (int c = 0xE0; c <= 0xFE; ++c)
        if (c != 0xF7) table[c] = static_cast<unsigned char>(c - 32);
    table[0x9A] = 0x8A;  // s caron
    table[0x9C] = 0x8C;  // oe
    table[0x9E] = 0x8E;  // z caron
    table[0xFF] = 0x9F;  // y diaeresis
    return table;
}
const std::array<unsigned char, 256> kUpper = buildUpperTable();
}  // namespace

unsigned char upperChar(unsigned char c) { return kUpper[c]; }

std::string upperCase(std::string_view text) {
    std::string out(text);
    for (auto& c : out) c = static_cast<char>(kUpper[static_cast<unsigned char>(c)]);
    return out;
}

bool equalsUpper(std::string_view text, std::string_view upperWord) {
    if (text.size() != upperWord.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (kUpper[static_cast<unsigned char>(text[i])] != static_cast<unsigned char>(upperWord[i])) return false;
    return true;
}

}  // namespace hlyd
