#include "base/text_format.h"

#include "platform/clock.h"

namespace hlyd {

std::string zeroPad(std::int64_t value, int width) {
    bool negative = value < 0;
    std::string digits = std::to_string(negative ? -value : value);
    if (static_cast<int>(digits.size()) < width) digits.insert(0, width - digits.size(), '0');
    return negative ? "-" + digits : digits;
}

std::string formatTimestamp(std::time_t t, const std::string& picture) {
    std::tm tm = localTime(t);
    std::string out;
    bool afterHour = false;
    for (std::size_t i = 0; i < picture.size();) {
        auto take = [&](const char* field) {
            return picture.compare(i, std::char_traits<char>::length(field), field) == 0;
        };
        if (take("yyyy")) {
            out += zeroPad(tm.tm_year + 1900, 4);
            i += 4;
        } else if (take("mm")) {
            out += zeroPad(afterHour ? tm.tm_min : tm.tm_mon + 1, 2);
            i += 2;
        } else if (take("dd")) {
            out += zeroPad(tm.tm_mday, 2);
            i += 2;
        } else if (take("hh")) {
            out += zeroPad(tm.tm_hour, 2);
            afterHour = true;
            i += 2;
        } else if (take("ss")) {
            out += zeroPad(tm.tm_sec, 2);
            i += 2;
        } else out += picture[i++];
    }
    return out;
}

std::string formatDate(std::time_t t) { return formatTimestamp(t, "mm/dd/yyyy"); }
std::string formatTime(std::time_t t) { return formatTimestamp(t, "hh:mm:ss"); }

std::string trimSpaces(const std::string& s) {
    std::size_t b = s.find_first_not_of(' ');
    if (b == std::string::npos) return {};
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

std::vector<std::string> splitOn(const std::string& text, char at) {
    std::vector<std::string> pieces(1);
    for (char c : text) {
        if (c == at) pieces.emplace_back();
        else pieces.back() += c;
    }
    return pieces;
}

std::string trimBlanks(const std::string& s) {
    std::size_t b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return {};
    return s.substr(b, s.find_last_not_of(" \t") - b + 1);
}

std::string lowerCaseAscii(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return s;
}

}  // namespace hlyd
