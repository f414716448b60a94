#include "files/print_history.h"

#include <cctype>
#include <cstdio>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "files/file_table.h"
#include "files/output_guard.h"
#include "platform/clock.h"
#include "platform/os.h"
#include "settings/ini_handler.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// A fresh handler on every use: the history is never held open between queries.
cINIHandler openHistory(const char* section = kHistorySection) {
    cINIHandler history;
    const std::string& named = hlydSettings().SaveHYFile;
    history.setINIFileName(named.empty() ? kDefaultHistoryFileName : named);
    history.setSection(section);
    return history;
}

std::string symbolText(const char* symbol, const char* fallback) { return symbol && *symbol ? symbol : fallback; }

AmPmSymbols symbolsOfUserLocale() {
    os::LocaleFacts facts = os::userLocale();
    return {symbolText(facts.am.c_str(), "AM"), symbolText(facts.pm.c_str(), "PM")};
}

int twelveHour(int hour) {
    int h = hour % 12;
    return h == 0 ? 12 : h;
}

std::string formatDate(std::time_t t, const char* pattern, const AmPmSymbols& symbols) {
    std::tm tm = localTime(t);
    const std::string& half = tm.tm_hour < 12 ? symbols.am : symbols.pm;
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, pattern, tm.tm_mon + 1, tm.tm_mday, tm.tm_year + 1900, twelveHour(tm.tm_hour),
                  tm.tm_min, tm.tm_sec, half.c_str());
    return buffer;
}

// Reads a date text left to right; every step fails softly so that a bad text is "not a date".
class DateScanner {
public:
    explicit DateScanner(const std::string& text) : text_(text) {}

    std::optional<int> number(std::size_t minDigits, std::size_t maxDigits) {
        std::size_t start = at_;
        int value = 0;
        while (at_ < text_.size() && at_ - start < maxDigits && isDigit(text_[at_]))
            value = value * 10 + (text_[at_++] - '0');
        if (at_ - start < minDigits) return std::nullopt;
        return value;
    }
    bool accept(char c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    bool skipBlanks() {
        std::size_t start = at_;
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
        return at_ > start;
    }
    std::string rest() const { return text_.substr(at_); }

private:
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    const std::string& text_;
    std::size_t at_ = 0;
};

std::string trimBlanks(const std::string& s) {
    std::size_t first = s.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

bool sameIgnoringAsciiCase(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        unsigned char x = a[i], y = b[i];
        if (x < 0x80) x = static_cast<unsigned char>(std::tolower(x));
        if (y < 0x80) y = static_cast<unsigned char>(std::tolower(y));
        if (x != y) return false;
    }
    return true;
}

enum class Half { None, Am, Pm, Unknown };

Half halfOfDay(const std::string& word, const AmPmSymbols& symbols) {
    if (word.empty()) return Half::None;
    if (sameIgnoringAsciiCase(word, symbols.am) || sameIgnoringAsciiCase(word, "AM")) return Half::Am;
    if (sameIgnoringAsciiCase(word, symbols.pm) || sameIgnoringAsciiCase(word, "PM")) return Half::Pm;
    return Half::Unknown;
}

// The hour of the day from a clock reading, or -1 when the reading is impossible.
int hourOfDay(int hour, Half half) {
    if (half == Half::None) return hour <= 23 ? hour : -1;
    if (hour > 12) return -1;
    return hour % 12 + (half == Half::Pm ? 12 : 0);
}

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int month, int year) {
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

struct DateFields {
    int month = 0, day = 0, year = 0, hour = 0, minute = 0, second = 0;
    Half half = Half::None;
};

std::optional<DateFields> scanDate(const std::string& text, const AmPmSymbols& symbols) {
    DateScanner in(text);
    DateFields f;
    auto month = in.number(1, 2);
    if (!month || !in.accept('/')) return std::nullopt;
    auto day = in.number(1, 2);
    if (!day || !in.accept('/')) return std::nullopt;
    auto year = in.number(4, 4);
    if (!year || !in.skipBlanks()) return std::nullopt;
    auto hour = in.number(1, 2);
    if (!hour || !in.accept(':')) return std::nullopt;
    auto minute = in.number(1, 2);
    if (!minute) return std::nullopt;
    std::optional<int> second = 0;
    if (in.accept(':') && !(second = in.number(1, 2))) return std::nullopt;
    in.skipBlanks();
    f = {*month, *day, *year, *hour, *minute, *second, halfOfDay(in.rest(), symbols)};
    return f;
}

bool fieldsValid(const DateFields& f) {
    return f.half != Half::Unknown && f.month >= 1 && f.month <= 12 && f.day >= 1 &&
           f.day <= daysInMonth(f.month, f.year) && hourOfDay(f.hour, f.half) >= 0 && f.minute <= 59 && f.second <= 59;
}

std::time_t fileTime(const std::string& fileName, const char* source) {
    os::FileInfo info = os::fileInfo(fileName);
    if (!info.exists()) raiseRuntime(runtimeErrorFromErrno(info.error), source);
    return static_cast<std::time_t>(info.modifiedSeconds);
}

}  // namespace

std::string historyEntry(const std::string& fileName, const char* section) {
    cINIHandler history = openHistory(section);
    return history.ReadString(fileName, "");
}

// The last-saved time before the "|" is there for people reading the file and is never compared.
std::optional<std::time_t> printingTimeOf(const std::string& entry) {
    std::size_t bar = entry.find('|');
    if (bar == std::string::npos) return std::nullopt;
    return parseHistoryDate(entry.substr(bar + 1));
}

const AmPmSymbols& localeAmPm() {
    static const AmPmSymbols symbols = symbolsOfUserLocale();
    return symbols;
}

std::string formatFileTime(std::time_t t, const AmPmSymbols& symbols) {
    return formatDate(t, "%d/%02d/%04d %d:%02d:%02d %s", symbols);
}

std::string formatPrintTime(std::time_t t, const AmPmSymbols& symbols) {
    return formatDate(t, "%02d/%02d/%04d %d:%02d:%02d %s", symbols);
}

std::string formatDefaultDateTime(std::time_t t, const AmPmSymbols& symbols) {
    return formatDate(t, "%d/%d/%04d %d:%02d:%02d %s", symbols);
}

std::optional<std::time_t> parseHistoryDate(const std::string& text, const AmPmSymbols& symbols) {
    std::optional<DateFields> f = scanDate(trimBlanks(text), symbols);
    if (!f || !fieldsValid(*f)) return std::nullopt;
    std::tm tm{};
    tm.tm_year = f->year - 1900;
    tm.tm_mon = f->month - 1;
    tm.tm_mday = f->day;
    tm.tm_hour = hourOfDay(f->hour, f->half);
    tm.tm_min = f->minute;
    tm.tm_sec = f->second;
    tm.tm_isdst = -1;  // the entry was written in local time, summer or winter as it then was
    return std::mktime(&tm);
}

std::time_t fileLastSaved(const std::string& fileName) { return fileTime(fileName, "fileLastSaved"); }

void SaveHYInfo(bool noHistoryFlag) {
    TraceScope trace(theDebug().TraceApplication, "SaveHYInfo");
    if (!hlydSettings().SaveHYInfo || noHistoryFlag) return;
    const std::string& fileName = oFile().Item(fileTable().wCurrentFile).FileName;
    std::string entry = formatFileTime(fileTime(fileName, "SaveHYInfo")) + "|" + formatPrintTime(theClock().now());
    // The run was refused before its first page when the history may not be written; this is
    // the last guard, for a file that became something else while the run went on.
    if (!outputRefusal(*historyOutput()).empty()) return;
    cINIHandler history = openHistory();
    history.WriteString(fileName, entry);
}

std::string historyFilePath() { return openHistory().resolvedPath(); }

bool fbIsNewer(const std::string& fileName) {
    TraceScope trace(theDebug().TraceApplication, "fbIsNewer");
    std::string entry = historyEntry(fileName);
    if (entry.empty()) return true;
    std::optional<std::time_t> printed = printingTimeOf(entry);
    if (!printed) return true;
    return *printed < fileTime(fileName, "fbIsNewer");
}

bool bIsNewer(const std::string& fileName) {
    TraceScope trace(theDebug().TraceApplication, "bIsNewer");
    std::time_t saved = fileTime(fileName, "bIsNewer");
    std::string entry = historyEntry(fileName);
    // Without a "|" the printing time stays at the zero date, before any file's time.
    if (entry.find('|') == std::string::npos) return true;
    std::optional<std::time_t> printed = printingTimeOf(entry);
    if (!printed) return true;
    return *printed < saved;
}

}  // namespace hlyd
