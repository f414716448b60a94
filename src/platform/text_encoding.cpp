#include "platform/text_encoding.h"

namespace hlyd {

namespace {
// 0x80 to 0x9F; the rest of the upper half is Latin-1.
constexpr std::uint16_t kHighControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
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

namespace {

// The byte of a code point, '?' when Windows-1252 has none.
char cp1252Byte(std::uint32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] == cp) return static_cast<char>(0x80 + i);
    return '?';
}

// The length of the sequence a lead byte starts, 0 for a byte that cannot lead.
int sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 0;
}

}  // namespace

std::string utf8ToCp1252(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        auto lead = static_cast<unsigned char>(text[i]);
        int length = sequenceLength(lead);
        if (length == 0 || i + length > text.size()) {
            out += '?';
            ++i;
            continue;
        }
        std::uint32_t cp = length == 1 ? lead : lead & (0x7F >> length);
        bool broken = false;
        for (int k = 1; k < length; ++k) {
            auto next = static_cast<unsigned char>(text[i + k]);
            broken = broken || (next & 0xC0) != 0x80;
            cp = (cp << 6) | (next & 0x3F);
        }
        out += broken ? '?' : cp1252Byte(cp);
        i += broken ? 1 : length;
    }
    return out;
}

}  // namespace hlyd
