#include "settings/system_queries.h"

#include <fcntl.h>
#include <langinfo.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "shell/c_debug.h"
#include "shell/c_log.h"

namespace hlyd {

namespace {
LocaleTexts locale;
cWindow window;

// The locale in force for the user, as the environment names it.
std::string localeName(int category) {
    for (const char* var : {"LC_ALL", category == LC_MEASUREMENT ? "LC_MEASUREMENT" : "LC_MONETARY", "LANG"}) {
        const char* value = std::getenv(var);
        if (value && *value) return value;
    }
    return "C";
}

// nl_langinfo of one item under the user's locale, without changing the program's own locale.
std::string langInfo(int category, nl_item item) {
    locale_t loc = newlocale(category == LC_MEASUREMENT ? LC_MEASUREMENT_MASK : LC_MONETARY_MASK | LC_NUMERIC_MASK,
                             localeName(category).c_str(), nullptr);
    if (!loc) return {};
    std::string value = nl_langinfo_l(item, loc);
    freelocale(loc);
    return value;
}
}  // namespace

LocaleTexts& localeTexts() { return locale; }

std::string separatorOrFallback(const std::string& reply, const std::string& fallback) {
    return reply.size() < 2 ? fallback : reply.substr(0, reply.find('\0'));
}

void queryLocaleSeparators() {
    // The replies carry their terminator, as the classic locale query counts it.
    std::string decimal = langInfo(LC_MONETARY, RADIXCHAR);
    std::string group = langInfo(LC_MONETARY, __MON_THOUSANDS_SEP);
    locale.DecimalSeparator = separatorOrFallback(decimal + '\0', ".");
    locale.GroupSeparator = separatorOrFallback(group + '\0', ".");
}

bool fbIsMetric() {
    std::string measurement = langInfo(LC_MEASUREMENT, _NL_MEASUREMENT_MEASUREMENT);
    // 1 is metric, 2 is the US system; no answer counts as not metric.
    return !measurement.empty() && measurement[0] == 1;
}

bool fbDragShow() { return true; }

std::string UserCoDef(const std::string&) { return {}; }

double GetNumberFromString(const std::string& text) {
    if (text.empty()) return 0;
    const std::string& group = locale.GroupSeparator;
    const std::string& decimal = locale.DecimalSeparator;
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
    int fd = ::open(name.c_str(), O_RDONLY);
    if (fd <= 0) return false;
    ::close(fd);
    return !std::filesystem::is_directory(name);
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
    // The built-in printer writes a PDF file; it exists on every machine, with or without printers.
    return "PDF";
}

std::string cWindow::GetTempFile(const std::string& prefix) const {
    std::string pattern = (std::filesystem::temp_directory_path() / (prefix + "XXXXXX")).string();
    int fd = ::mkstemp(pattern.data());
    if (fd >= 0) ::close(fd);
    return pattern.substr(0, pattern.find('\0'));
}

std::string cWindow::WinDir() const { return "/etc"; }

std::string cWindow::WinVersion() const {
    utsname u{};
    if (uname(&u) != 0) return {};
    // The platform, its release as the version, and the build the kernel names.
    return std::string(" ") + u.sysname + " Version " + u.release + " Build " + u.version;
}

cWindow& theWindow() { return window; }

}  // namespace hlyd
