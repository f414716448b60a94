#include "json_lines.h"

#include <cstdio>

#include "platform/text_encoding.h"

namespace hlyd {

std::string jsonString(std::string_view text) {
    std::string out = "\"";
    for (char ch : text) {
        std::uint32_t cp = cp1252CodePoint(static_cast<unsigned char>(ch));
        if (cp == '"') out += "\\\"";
        else if (cp == '\\') out += "\\\\";
        else if (cp < 0x20 || cp == 0x7F || (cp >= 0x80 && cp <= 0x9F)) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(cp));
            out += escaped;
        } else {
            appendUtf8(out, cp);
        }
    }
    return out + "\"";
}

JsonObject::JsonObject(std::string_view kind) : text_("{\"kind\":") { text_ += jsonString(kind); }

void JsonObject::name(std::string_view n) {
    text_ += ',';
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

JsonObject& JsonObject::addRaw(std::string_view n, std::string_view json) {
    name(n);
    text_ += json;
    return *this;
}

}  // namespace hlyd
