#include "printing/heading_macros.h"

#include <cmath>

#include "base/locale_dates.h"
#include "base/text_format.h"
#include "base/app_info.h"
#include "platform/clock.h"
#include "printing/heading_lookups.h"
#include "settings/ini_handler.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// The contents pages' numerals, written the usual way. The numerals of old printed 40 as "lx"
// (60), 80 as "lxxxx" and 90 as "c", and stopped the whole print at the hundredth contents page;
// a numbering that misleads the reader or ends the job is worth more than matching old pages.
struct RomanStep {
    std::int32_t value;
    const char* numeral;
};
constexpr RomanStep kRomanSteps[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                     {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                     {5, "v"},    {4, "iv"},   {1, "i"}};

struct FilePath {
    std::string name;
    std::string directory;  // with its last separator
};

FilePath currentFilePath() {
    FilePath path;
    sbFileNameFromDir(headingCurrentFile().FileName, path.name, path.directory);
    return path;
}

std::string procName(const HeadingMacroContext& c) {
    std::string given = trimSpaces(c.procText);
    if (!given.empty()) return given;
    if (headingCurrentFile().FileType != kFileSource) return {};
    return procedureNameAt(c.currentRecord);
}

using Expansion = std::string (*)(const HeadingMacroContext&);

struct Macro {
    const char* name;
    bool dynamic;
    Expansion expand;
};

const Macro kMacros[] = {
        {"@date", false, [](const HeadingMacroContext&) { return mediumDateText(theClock().now()) + " "; }},
        {"@time", false, [](const HeadingMacroContext&) { return shortTimeText(theClock().now()) + " "; }},
        {"@page", true, [](const HeadingMacroContext& c) { return pageNumberText(c.page, c.printAsRoman) + " "; }},
        {"@filedate", false,
         [](const HeadingMacroContext&) {
             return mediumDateText(static_cast<std::time_t>(currentFileSavedAt())) + " ";
         }},
        {"@filetime", false,
         [](const HeadingMacroContext&) {
             return shortTimeText(static_cast<std::time_t>(currentFileSavedAt())) + " ";
         }},
        {"@user", false, [](const HeadingMacroContext&) { return theAppInfo().UserName; }},
        {"@company", false, [](const HeadingMacroContext&) { return theAppInfo().UserCompany; }},
        // A contents page belongs to no one file or project.
        {"@filename", true,
         [](const HeadingMacroContext& c) { return c.printAsRoman ? std::string() : currentFilePath().name; }},
        {"@filepath", false, [](const HeadingMacroContext&) { return headingCurrentFile().FileName; }},
        {"@vbname", true, [](const HeadingMacroContext&) { return fileTable().sVBName; }},
        {"@procname", true, procName},
        {"@project", true,
         [](const HeadingMacroContext& c) { return c.printAsRoman ? std::string() : currentProjectName(); }},
        {"@path", false, [](const HeadingMacroContext&) { return currentFilePath().directory; }},
        {"@ask", false,
         [](const HeadingMacroContext& c) { return askRoutineDescription(procedureNameAt(c.currentRecord)); }},
        {"|", false, [](const HeadingMacroContext&) { return std::string(); }},
};

// "@path<n>": the directory in at most n characters. Without a ">" after the number, or with
// n not above 0, the directory stands whole; so it does when n is at least its length, however
// large n is (a number beyond 16 bits would otherwise end every print with an overflow).
std::string shortPathMacro(const std::string& token) {
    std::string directory = currentFilePath().directory;
    std::size_t close = token.find('>');
    if (close == std::string::npos || close <= 6) return directory;
    double n = std::nearbyint(valOf(token.substr(6, close - 6)));
    if (!(n > 0) || n >= static_cast<double>(directory.size())) return directory;
    return shortenedPath(directory, static_cast<int>(n));
}

}  // namespace

HeadingPiece expandHeadingToken(const std::string& token, const HeadingMacroContext& context) {
    std::string lower = lowerCaseAscii(token);
    for (const Macro& macro : kMacros)
        if (lower == macro.name) return {macro.expand(context), macro.dynamic};
    if (lower.compare(0, 6, "@path<") == 0) return {shortPathMacro(token), false};
    if (token[0] == '<') return {literalText(token), false};
    return {token + " ", false};  // a mistyped macro prints as itself
}

// Beyond 3999 the thousands go on as "m"s: no page number is too large to print. A number
// below 1 has no numeral: 0 prints nothing, and a negative one prints in figures.
std::string pageNumberText(std::int32_t page, bool roman) {
    if (!roman || page < 0) return std::to_string(page);
    std::string text;
    for (const RomanStep& step : kRomanSteps)
        for (; page >= step.value; page -= step.value) text += step.numeral;
    return text;
}

std::string shortenedPath(const std::string& directory, int n) {
    if (static_cast<int>(directory.size()) <= n) return directory;
    if (n < 4) return std::string(static_cast<std::size_t>(n), '.');
    int kept = n - 3;
    int left = static_cast<int>(std::nearbyint(kept / 2.0));
    int right = kept - left;
    return directory.substr(0, left) + "..." + directory.substr(directory.size() - right);
}

// The closing ">" counts from the second character on: "<>x" prints ">x". Without one the rest
// of the token prints.
std::string literalText(const std::string& token) {
    std::string text = token.substr(1) + " ";
    std::size_t close = text.find('>');
    if (close != std::string::npos && close >= 1) text = text.substr(0, close) + " ";
    return text;
}

}  // namespace hlyd
