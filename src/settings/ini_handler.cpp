#include "settings/ini_handler.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

#include "base/app_info.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "platform/char_case.h"
#include "settings/profile_file.h"

namespace hlyd {

namespace {
constexpr std::size_t kReadBuffer = 255;

std::string replaceBrackets(std::string s) {
    for (char& c : s)
        if (c == '[' || c == ']') c = '|';
    return s;
}

// The format of a number: "0", "0.00" and the like give fixed decimals; anything else the
// default conversion.
std::string formatNumber(double value, const std::string& format) {
    if (format.empty() || format.find_first_not_of("0#.") != std::string::npos) return numberText(value);
    std::size_t point = format.find('.');
    int decimals = point == std::string::npos ? 0 : static_cast<int>(format.size() - point - 1);
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return buffer;
}
}  // namespace

double valOf(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    std::string number;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) number += text[i++];
    bool point = false;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (c >= '0' && c <= '9') number += c;
        else if (c == '.' && !point) point = true, number += c;
        else break;
    }
    if (number.find_first_of("0123456789") == std::string::npos) return 0;
    return std::strtod(number.c_str(), nullptr);
}

std::string numberText(double value) {
    if (std::nearbyint(value) == value && std::fabs(value) < 1e15) return std::to_string(static_cast<long long>(value));
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

cINIHandler::cINIHandler() {
    const cAppInfo& app = theAppInfo();
    iniFileName_ = app.Path + "/" + app.EXEName + ".INI";
}

void cINIHandler::setSection(const std::string& name) { section_ = replaceBrackets(name); }

// Asked for every key read: the join is made again only when the name or the directory changed.
std::string cINIHandler::resolvedPath() const {
    if (iniFileName_.find_first_of("/\\") != std::string::npos) return iniFileName_;
    std::string directory = settingsDirectory();
    if (directory != resolvedDirectory_ || iniFileName_ != resolvedName_) {
        resolvedPath_ = (std::filesystem::path(directory) / iniFileName_).string();
        resolvedDirectory_ = std::move(directory);
        resolvedName_ = iniFileName_;
    }
    return resolvedPath_;
}

std::string cINIHandler::readRaw(const std::string& key, const std::string& defaultValue, bool /*useSystem*/) const {
    // There is no system profile here: both kinds of read go to the file.
    std::string value = getProfileString(resolvedPath(), section_, key, defaultValue);
    if (value.size() > kReadBuffer) value.resize(kReadBuffer);
    return value;
}

long cINIHandler::write(const std::optional<std::string>& key, const std::optional<std::string>& value) {
    return writeProfileString(resolvedPath(), section_, key, value) ? 1 : 0;
}

bool cINIHandler::ReadBool(const std::string& key, bool defaultValue, const std::optional<std::string>& section) {
    if (section) setSection(*section);
    std::string value = upperCase(trimSpaces(readRaw(key, defaultValue ? "True" : "False", false)));
    if (value == "NO" || value == "FALSE" || value == "0") return false;
    if (value == "YES" || value == "TRUE" || value == "-1") return true;
    return defaultValue;
}

double cINIHandler::ReadNumber(const std::string& key, double defaultValue, std::optional<double> lower,
                               std::optional<double> upper, const std::string& section, bool useSystem) {
    if (!section.empty()) setSection(section);
    std::string text = readRaw(key, numberText(defaultValue), useSystem);
    double value = valOf(text);
    if (lower && value < *lower) value = *lower;
    if (upper && value > *upper) value = *upper;
    if (value != valOf(text)) logOutOfRange(key, text, numberText(value));
    return value;
}

void cINIHandler::logOutOfRange(const std::string& key, const std::string& text, const std::string& used) const {
    theLog().LogData("Setting out of range: " + key + "=" + text + " in section [" + section_ + "] of " +
                     resolvedPath() + "; " + used + " is used");
}

std::string cINIHandler::ReadString(const std::string& key, const std::string& defaultValue, const std::string& section,
                                    bool useSystem) {
    if (!section.empty()) section_ = section;
    return readRaw(key, defaultValue, useSystem);
}

std::vector<std::string> cINIHandler::ReadWords(const std::string& key, const std::string& defaultValue,
                                                const std::optional<std::string>& section,
                                                const std::string& delimiter) {
    if (section) section_ = *section;
    std::string value = readRaw(key, "", false);
    if (value.empty()) value = defaultValue;
    // One pass only: three blanks become two, which then split into an empty word.
    std::string single;
    for (std::size_t i = 0; i < value.size(); ++i) {
        single += value[i];
        if (value[i] == ' ' && i + 1 < value.size() && value[i + 1] == ' ') ++i;
    }
    std::vector<std::string> words;
    if (single.empty()) return words;
    std::string sep = delimiter.empty() ? " " : delimiter;
    std::size_t start = 0;
    for (std::size_t at = single.find(sep); at != std::string::npos; at = single.find(sep, start)) {
        words.push_back(single.substr(start, at - start));
        start = at + sep.size();
    }
    words.push_back(single.substr(start));
    return words;
}

long cINIHandler::WriteBool(const std::string& key, bool value, const std::optional<std::string>& section) {
    if (section) setSection(*section);
    return write(key, std::string(value ? "Yes" : "No"));
}

long cINIHandler::WriteNumber(const std::string& key, double value, const std::string& format,
                              const std::optional<std::string>& section) {
    if (section) setSection(*section);
    return write(key, formatNumber(value, format));
}

long cINIHandler::WriteString(const std::string& key, const std::string& value,
                              const std::optional<std::string>& section) {
    if (section) setSection(*section);
    return write(key, value);
}

long cINIHandler::WriteWords(const std::string& key, const std::vector<std::string>& words,
                             const std::optional<std::string>& section) {
    if (section) section_ = *section;
    std::string joined;
    for (std::size_t i = 0; i < words.size(); ++i) joined += (i ? " " : "") + words[i];
    return write(key, joined);
}

long cINIHandler::DeleteKey(const std::string& key, const std::optional<std::string>& section) {
    if (section) setSection(*section);
    return write(key, std::nullopt);
}

long cINIHandler::DeleteSection(const std::string& section) {
    setSection(section);
    return write(std::nullopt, std::nullopt);
}

}  // namespace hlyd
