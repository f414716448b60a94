#include "platform/pdf/pdf_syntax.h"

#include <charconv>

namespace hlyd {

namespace {
const char kHex[] = "0123456789ABCDEF";
}  // namespace

void appendNumber(std::string& out, double value) {
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    if (ec != std::errc()) return out.append("0"), void();
    char* last = end;
    while (last > buffer && last[-1] == '0') --last;
    if (last > buffer && last[-1] == '.') --last;
    if (last == buffer || (last - buffer == 1 && buffer[0] == '-')) return out.append("0"), void();
    out.append(buffer, last);
}

std::string pdfNumber(double value) {
    std::string s;
    appendNumber(s, value);
    return s;
}

void appendInteger(std::string& out, std::int64_t value) {
    char buffer[24];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, static_cast<std::size_t>(end - buffer));  // by length: a range goes the long way round
}

void appendHex8(std::string& out, std::uint32_t v) {
    out += kHex[v >> 4 & 0xF];
    out += kHex[v & 0xF];
}

void appendHex16(std::string& out, std::uint32_t v) {
    appendHex8(out, v >> 8);
    appendHex8(out, v);
}

}  // namespace hlyd
