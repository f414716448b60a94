#pragma once
// The few answers the logic needs from the operating system: locale separators, measurement
// system, user defaults, a number read from free text, file checks and a version text.
#include <string>

namespace hlyd {

struct LocaleTexts {
    std::string DecimalSeparator = ".";
    std::string GroupSeparator = ".";
    std::string DigitGroup;  // what groups the digits of counts on screen; empty: no grouping
};

LocaleTexts& localeTexts();

// Reads the separators from the locale; a reply with no text leaves "." in force.
void queryLocaleSeparators();
// The rule for one reply: fewer than 2 characters (only a terminator) gives the fallback.
std::string separatorOrFallback(const std::string& replyWithTerminator, const std::string& fallback);
// The locale's digit group separator made plain ASCII, since the texts it goes into reach the
// screen through more than one encoding: a narrow or no-break space becomes a space, a typographic
// apostrophe an apostrophe.
std::string plainDigitGroup(const std::string& separator);

bool fbIsMetric();
bool fbDragShow();
std::string UserCoDef(const std::string& valueName);

// The number in a free text: "1 1/2" is 1.5, "(12)" is -12, "$1,000" is 1000; four decimals.
double GetNumberFromString(const std::string& text);

bool FileExists(const std::string& name);

// Splits at the last directory separator ("\" or "/"), which stays with the directory.
void sbFileNameFromDir(const std::string& full, std::string& name, std::string& directory);

// The name of the printer that is used when the settings name none.
std::string systemDefaultPrinter();

class cWindow {
public:
    std::string GetTempFile(const std::string& prefix) const;
    std::string WinDir() const;
    std::string WinVersion() const;
};

cWindow& theWindow();

}  // namespace hlyd
