#include "settings_fuzz.h"

#include <random>
#include <vector>

namespace hlyd::fuzz {

namespace {

// Around the ranges the dialogs allow, the 16- and 32-bit edges, and numbers that are no number.
const std::vector<std::string> kNumbers = {
        "0",     "1",   "-1",   "2",           "3",           "10",        "16",    "17",         "100",
        "101",   "720", "1000", "1440",        "2880",        "5760",      "5761",  "12240",      "48960",
        "0.01",  "0.5", "1.5",  "32767",       "32768",       "-32769",    "65536", "2147483647", "-2147483648",
        "1e999", "abc", "",     "99999999999", "-1100000000", "4294967296"};
const std::vector<std::string> kMacros = {"@date",    "@time",     "@page",     "@filedate", "@filetime", "@user",
                                          "@company", "@filename", "@filepath", "@vbname",   "@procname", "@project",
                                          "@path",    "@mistyped", "|",         " "};
const std::vector<std::string> kFonts = {"Courier New", "", "No Such Font", "DejaVu Sans Mono", "Liberation Serif"};
const std::vector<std::string> kElements = {"Comments",        "Identifiers",  "KeyWords",   "Literals",
                                            "Headers/Footers", "Project File", "Procedures", "Line Numbers"};

class Maker {
public:
    explicit Maker(unsigned seed) : rng_(seed) {}

    std::size_t pick(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(rng_); }
    bool coin() { return pick(2) == 0; }
    const std::string& any(const std::vector<std::string>& list) { return list[pick(list.size())]; }
    std::string yesNo() { return coin() ? "Yes" : "No"; }

    // Most keys are left out now and then, so that their defaults meet the others' edges.
    void key(const std::string& name, const std::string& value) {
        if (pick(4) != 0) text_ += name + "=" + value + "\n";
    }
    void section(const std::string& name) { text_ += "[" + name + "]\n"; }

    std::string heading() {
        std::string text;
        for (std::size_t n = pick(6); n > 0; --n) {
            switch (pick(4)) {
                case 0: text += "@path<" + any(kNumbers) + ">"; break;
                case 1: text += "<" + std::string(pick(3) == 0 ? 400 : pick(40), 'W') + ">"; break;
                default: text += any(kMacros); break;
            }
            text += ";";
        }
        return text;
    }

    std::string words(std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += (i ? " " : "") + any(kNumbers);
        return text;
    }

    std::string fontAttr() { return yesNo() + " " + yesNo() + " " + yesNo() + " " + yesNo() + " " + any(kNumbers); }

    std::string& text() { return text_; }

private:
    std::mt19937 rng_;
    std::string text_;
};

}  // namespace

std::string fuzzedSettings(unsigned seed, const std::string& printer) {
    Maker m(seed);
    m.section("General");
    m.text() += "CurrentPrinter=" + printer + "\nTableOfContents=Yes\nProcContents=Yes\n";
    m.key("PrintContinuous", m.yesNo());
    m.key("LineNumbers", m.yesNo());
    for (const char* number : {"LineNumberHow", "LineNumberStart", "LineNumberIncrement", "PageNumberHow"})
        m.key(number, m.any(kNumbers));
    for (const char* heading :
         {"HeadingLeft", "HeadingCenter", "HeadingRight", "FootingLeft", "FootingCenter", "FootingRight"})
        m.key(heading, m.heading());
    m.section(printer + ".Print");
    m.key("Margins", m.words(4));
    for (const char* number : {"Columns", "ColumnSpacing", "ColumnWidth"}) m.key(number, m.any(kNumbers));
    for (const std::string& element : kElements) {
        m.key("FontName." + element, m.any(kFonts));
        m.key("FontAttr." + element, m.fontAttr());
    }
    m.section("Format");
    for (const char* number : {"IndentAmount.Print", "TabWidth.Print", "Orphan.Print"}) m.key(number, m.any(kNumbers));
    m.key("ProcSkip.Print", m.any({"P", "C", "N", "X", ""}));
    m.key("Separator.Print", m.yesNo());
    return m.text();
}

}  // namespace hlyd::fuzz
