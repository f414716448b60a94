#include "models/print_options_units.h"

#include <cctype>
#include <cmath>
#include <cstdio>

#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

constexpr float kInch = 1440.0F;
constexpr float kCentimetre = 567.0F;

std::string unitName() { return hlydSettings().MetricUnits ? "Centimeters" : "Inches"; }

std::string trimmed(const std::string& text) {
    auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The locale's separator when it is one character, else the point.
char decimalSeparator() {
    const std::string& separator = localeTexts().DecimalSeparator;
    return separator.size() == 1 ? separator[0] : '.';
}

}  // namespace

float optionsUnitTwips() { return hlydSettings().MetricUnits ? kCentimetre : kInch; }

std::string columnsFrameCaption() { return "Columns (" + unitName() + ")"; }
std::string marginsFrameCaption() { return "Margins (" + unitName() + ")"; }

std::string lengthText(std::int32_t twips) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.3f", static_cast<double>(twips) / optionsUnitTwips());
    std::string text = buffer;
    // No trailing zeros and no lone separator: 1 inch reads "1", half an inch "0.5".
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    if (text == "-0") text = "0";
    auto point = text.find('.');
    if (point != std::string::npos) text[point] = decimalSeparator();
    return text;
}

std::optional<float> numberInField(const std::string& text) {
    std::string t = trimmed(text);
    std::size_t i = (!t.empty() && (t[0] == '-' || t[0] == '+')) ? 1 : 0;
    bool digits = false, separator = false;
    std::string plain = t.substr(0, i);
    for (; i < t.size(); ++i) {
        char c = t[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            digits = true;
            plain += c;
        } else if ((c == decimalSeparator() || c == '.') && !separator) {
            separator = true;
            plain += '.';
        } else {
            return std::nullopt;
        }
    }
    if (!digits || plain.size() > 12) return std::nullopt;
    return std::strtof(plain.c_str(), nullptr);
}

std::optional<float> fieldTwips(const std::string& text) {
    std::optional<float> value = numberInField(text);
    if (!value) return std::nullopt;
    return *value * optionsUnitTwips();
}

}  // namespace hlyd
