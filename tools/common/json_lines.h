#pragma once
// One JSON object per line, built member by member, for the output of every tool. Text members
// come from Windows-1252 bytes; file names may be the system's UTF-8 or such bytes.
#include <cstdint>
#include <string>
#include <string_view>

namespace hlyd {

// A JSON string literal: UTF-8 from Windows-1252, control characters (NUL too) as \u00XX.
std::string jsonString(std::string_view cp1252Text);

// A file name as a JSON string literal: valid UTF-8 stays as it is, other bytes are read as
// Windows-1252, so that the line is valid UTF-8 whatever the name.
std::string jsonPathString(std::string_view path);

class JsonObject {
public:
    JsonObject() = default;  // an object without a "kind"
    explicit JsonObject(std::string_view kind);
    JsonObject& add(std::string_view name, std::int64_t value);
    JsonObject& add(std::string_view name, std::int32_t value) { return add(name, static_cast<std::int64_t>(value)); }
    JsonObject& add(std::string_view name, bool value);
    JsonObject& add(std::string_view name, std::string_view text);
    JsonObject& add(std::string_view name, const char* text) { return add(name, std::string_view(text)); }
    JsonObject& addPath(std::string_view name, std::string_view path);
    JsonObject& addRaw(std::string_view name, std::string_view json);
    std::string str() const { return text_ + "}"; }

private:
    void name(std::string_view n);
    std::string text_ = "{";
};

}  // namespace hlyd
