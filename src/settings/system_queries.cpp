#include "settings/system_queries.h"

#include <cmath>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "platform/os.h"
#include "platform/printer.h"
#include "settings/settings_state.h"

namespace hlyd {

namespace {
cWindow window;
}  // namespace

LocaleTexts& localeTexts() { return settingsState().locale; }

std::string separatorOrFallback(const std::string& reply, const std::string& fallback) {
    return reply.size() < 2 ? fallback : reply.substr(0, reply.find('\0'));
}

std::string plainDigitGroup(const std::string& separator) {
    if (separator.empty()) return {};
    auto first = static_cast<unsigned char>(separator[0]);
    if (first < 0x80) return separator.substr(0, 1);
    bool apostrophe = separator == "\xE2\x80\x99" || separator == "\x92";
    return apostrophe ? "'" : " ";
}

void queryLocaleSeparators() {
    // The replies carry their terminator, as the classic locale query counts it.
    os::LocaleFacts facts = os::userLocale();
    LocaleTexts& locale = localeTexts();
    locale.DecimalSeparator = separatorOrFallback(facts.decimalSeparator + '\0', ".");
    locale.GroupSeparator = separatorOrFallback(facts.groupSeparator + '\0', ".");
    locale.DigitGroup = plainDigitGroup(facts.digitGroup);
}

bool fbIsMetric() { return os::userLocale().metric; }

bool fbDragShow() { return true; }

std::string UserCoDef(const std::string&) { return {}; }

double GetNumberFromString(const std::string& text) {
    if (text.empty()) return 0;
    const std::string& group = localeTexts().GroupSeparator;
    const std::string& decimal = localeTexts().DecimalSeparator;
    double result = 0, numerator = 0, denominator = 0, sign = 1;
    bool inNumerator = false, inDenominator = false, inDecimals = false;
    int place = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (!group.empty() && text.compare(i, group.size(), group) == 0) continue;
        if (c == '$') continue;
        if (c == '-' || c == '(') {
            sign = -sign;
        } else if (!decimal.empty() && text.compare(i, decimal.size(), decimal) == 0) {
            // A second separator changes nothing: "1.5.5" reads as 1.55.
            if (!inDecimals) place = 1;
            inDecimals = true;
        } else if (c == ' ') {
            inNumerator = true;
            place = 1;
        } else if (c == '/') {
            if (!inNumerator) {
                numerator = result;
                result = 0;
                inNumerator = true;
            }
            inDenominator = true;
        } else if (c >= '0' && c <= '9') {
            int digit = c - '0';
            if (inDenominator) denominator = denominator * 10 + digit;
            else if (inNumerator) numerator = numerator * 10 + digit;
            else if (inDecimals) result += digit / std::pow(10.0, place++);
            else result = result * 10 + digit;
        }
    }
    if (inDenominator && denominator != 0) result += numerator / denominator;
    return std::nearbyint(result * sign * 10000.0) / 10000.0;
}

bool FileExists(const std::string& name) {
    TraceScope trace(theDebug().TraceApplication, "MFILESET::FileExists");
    // Only a regular file counts: opening a FIFO to test it would wait for a writer.
    os::InputFile file;
    return file.open(name) == 0;
}

void sbFileNameFromDir(const std::string& full, std::string& name, std::string& directory) {
    std::size_t at = full.find_last_of("\\/");
    if (at == std::string::npos) {
        name = full;
        directory.clear();
        return;
    }
    name = full.substr(at + 1);
    directory = full.substr(0, at + 1);
}

std::string systemDefaultPrinter() {
    if (PrinterSystem* printers = printerSystem()) {
        std::string name = printers->defaultPrinterName();
        if (!name.empty()) return name;
    }
    // The built-in printer writes a PDF file; it exists on every machine, with or without printers.
    return kPdfPrinterName;
}

std::string cWindow::GetTempFile(const std::string& prefix) const {
    std::string name = os::tempFileName(prefix);
    return name.substr(0, name.find('\0'));
}

std::string cWindow::WinDir() const { return os::systemDirectory(); }

std::string cWindow::WinVersion() const {
    os::SystemVersion v = os::systemVersion();
    if (v.name.empty()) return {};
    // The platform, its release as the version, and the build the kernel names.
    return " " + v.name + " Version " + v.release + " Build " + v.build;
}

cWindow& theWindow() { return window; }

}  // namespace hlyd
