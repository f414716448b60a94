// The running program and the system under it, on a POSIX system: process, executable, kernel
// version, and the facts of the user's locale.
#include <langinfo.h>
#include <locale.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <map>
#include <utility>

#include "platform/os.h"
#include "platform/text_encoding.h"

namespace hlyd::os {

namespace {

// The locale the environment names for a category, without changing the program's own locale.
std::string localeName(const char* categoryVariable) {
    for (const char* var : {"LC_ALL", categoryVariable, "LANG"}) {
        const char* value = std::getenv(var);
        if (value && *value) return value;
    }
    return "C";
}

// A locale is loaded once a run for each name and categories: loading reads its files, and a run
// asks for the same few a dozen times (a tenth of a small file's batch run went to it).
struct LoadedLocales {
    std::map<std::pair<int, std::string>, locale_t> byName;
    LoadedLocales() = default;
    LoadedLocales(const LoadedLocales&) = delete;
    LoadedLocales& operator=(const LoadedLocales&) = delete;
    ~LoadedLocales() {
        for (auto& [name, loc] : byName)
            if (loc) ::freelocale(loc);
    }
};

locale_t loadedLocale(int mask, const std::string& name) {
    static LoadedLocales loaded;
    auto [entry, fresh] = loaded.byName.try_emplace({mask, name}, static_cast<locale_t>(0));
    if (fresh) entry->second = ::newlocale(mask, name.c_str(), static_cast<locale_t>(0));
    return entry->second;
}

std::string langInfo(int mask, const char* categoryVariable, nl_item item) {
    locale_t loc = loadedLocale(mask, localeName(categoryVariable));
    return loc ? std::string(::nl_langinfo_l(item, loc)) : std::string();
}

// The text of a locale in the program's single-byte form.
std::string singleByte(locale_t loc, nl_item item) {
    std::string codeset = ::nl_langinfo_l(CODESET, loc);
    std::string value = ::nl_langinfo_l(item, loc);
    return codeset == "UTF-8" ? utf8ToCp1252(value) : value;
}

// What stands between hours and minutes in the locale's time format ("%H:%M:%S", "%T").
std::string timeSeparatorOf(const std::string& format) {
    if (format.find("%T") != std::string::npos || format.find("%R") != std::string::npos) return ":";
    std::size_t minutes = format.find("%M");
    if (minutes == std::string::npos || minutes < 3 || format[minutes - 3] != '%') return {};
    return format.substr(minutes - 1, 1);
}

void addTimeFacts(LocaleFacts& facts) {
    locale_t time = loadedLocale(LC_TIME_MASK, localeName("LC_TIME"));
    if (!time) return;
    facts.am = ::nl_langinfo_l(AM_STR, time);
    facts.pm = ::nl_langinfo_l(PM_STR, time);
    for (int month = 0; month < 12; ++month) facts.monthAbbreviations[month] = singleByte(time, ABMON_1 + month);
    facts.timeSeparator = timeSeparatorOf(::nl_langinfo_l(T_FMT, time));
}

}  // namespace

std::string systemDirectory() { return "/etc"; }

long processId() { return static_cast<long>(::getpid()); }

void useBinaryStandardStreams() {}

std::string executablePath() {
    char buffer[PATH_MAX];
    ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    return length > 0 ? std::string(buffer, static_cast<std::size_t>(length)) : std::string();
}

SystemVersion systemVersion() {
    utsname u{};
    if (::uname(&u) != 0) return {};
    return {u.sysname, u.release, u.version, u.machine};
}

LocaleFacts userLocale() {
    LocaleFacts facts;
    int money = LC_MONETARY_MASK | LC_NUMERIC_MASK;
    facts.decimalSeparator = langInfo(money, "LC_MONETARY", RADIXCHAR);
    facts.groupSeparator = langInfo(money, "LC_MONETARY", __MON_THOUSANDS_SEP);
    // 1 is metric, 2 the US system; no answer counts as not metric.
    std::string measurement = langInfo(LC_MEASUREMENT_MASK, "LC_MEASUREMENT", _NL_MEASUREMENT_MEASUREMENT);
    facts.metric = !measurement.empty() && measurement[0] == 1;
    addTimeFacts(facts);
    facts.digitGroup = langInfo(LC_NUMERIC_MASK, "LC_NUMERIC", THOUSEP);
    facts.paperLocale = localeName("LC_PAPER");
    return facts;
}

}  // namespace hlyd::os
