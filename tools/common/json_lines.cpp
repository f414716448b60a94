#include "json_lines.h"

#include <cstdio>
#include <optional>
#include <vector>

#include "platform/text_encoding.h"

namespace hlyd {

namespace {

void appendEscaped(std::string& out, std::uint32_t cp) {
    if (cp == '"') {
        out += "\\\"";
    } else if (cp == '\\') {
        out += "\\\\";
    } else if (cp < 0x20 || cp == 0x7F || (cp >= 0x80 && cp <= 0x9F)) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(cp));
        out += escaped;
    } else {
        appendUtf8(out, cp);
    }
}

// The code points of well-formed UTF-8 (no overlong forms, no surrogates), or nothing.
std::optional<std::vector<std::uint32_t>> utf8CodePoints(std::string_view text) {
    std::vector<std::uint32_t> points;
    for (std::size_t i = 0; i < text.size();) {
        auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
        unsigned char lead = byte(i);
        int extra = lead < 0x80                    ? 0
                    : lead >= 0xC2 && lead <= 0xDF ? 1
                    : lead >= 0xE0 && lead <= 0xEF ? 2
                    : lead >= 0xF0 && lead <= 0xF4 ? 3
                                                   : -1;
        if (extra < 0 || text.size() - i <= static_cast<std::size_t>(extra)) return std::nullopt;
        std::uint32_t cp = extra == 0 ? lead : lead & (0x3F >> extra);
        for (int k = 1; k <= extra; ++k) {
            unsigned char next = byte(i + static_cast<std::size_t>(k));
            if ((next & 0xC0) != 0x80) return std::nullopt;
            cp = (cp << 6) | (next & 0x3F);
        }
        static const std::uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
        if (cp < kLeast[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return std::nullopt;
        points.push_back(cp);
        i += static_cast<std::size_t>(extra) + 1;
    }
    return points;
}

}  // namespace

std::string jsonString(std::string_view text) {
    std::string out = "\"";
    for (char ch : text) appendEscaped(out, cp1252CodePoint(static_cast<unsigned char>(ch)));
    return out + "\"";
}

std::string jsonPathString(std::string_view path) {
    std::optional<std::vector<std::uint32_t>> points = utf8CodePoints(path);
    if (!points) return jsonString(path);
    std::string out = "\"";
    for (std::uint32_t cp : *points) appendEscaped(out, cp);
    return out + "\"";
}

JsonObject::JsonObject(std::string_view kind) { add("kind", kind); }

void JsonObject::name(std::string_view n) {
    if (text_.size() > 1) text_ += ',';
    text_ += jsonString(n);
    text_ += ':';
}

JsonObject& JsonObject::add(std::string_view n, std::int64_t value) {
    name(n);
    text_ += std::to_string(value);
    return *this;
}

JsonObject& JsonObject::add(std::string_view n, bool value) {
    name(n);
    text_ += value ? "true" : "false";
    return *this;
}

JsonObject& JsonObject::add(std::string_view n, std::string_view text) {
    name(n);
    text_ += jsonString(text);
    return *this;
}

JsonObject& JsonObject::addPath(std::string_view n, std::string_view path) {
    name(n);
    text_ += jsonPathString(path);
    return *this;
}

JsonObject& JsonObject::addRaw(std::string_view n, std::string_view json) {
    name(n);
    text_ += json;
    return *this;
}

}  // namespace hlyd
