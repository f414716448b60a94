#include "platform/text_encoding.h"

namespace hlyd {

namespace {
// 0x80 to 0x9F; the rest of the upper half is Latin-1.
constexpr std::uint16_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
}  // namespace

std::uint32_t cp1252CodePoint(unsigned char c) {
    if (c >= 0x80 && c <= 0x9F) return kHighControls[c - 0x80];
    return c;
}

void appendUtf8(std::string& out, std::uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

std::string cp1252ToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) appendUtf8(out, cp1252CodePoint(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace hlyd
