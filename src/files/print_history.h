#pragma once
// The print history: for each printed source file, when it was printed and how old the file was
// then. It answers one question, "has this file changed since it was last printed?", which the
// print dialog's choice of newer files asks. The history file is opened anew for every query and
// every entry, so that another copy of the program (or its sibling tool) may share it.
#include <ctime>
#include <optional>
#include <string>

namespace hlyd {

// The section of our entries. It is the application's title as the first releases wrote it:
// it must stay exactly so, or every history file already written would read as empty.
constexpr const char* kHistorySection = "Tamarin Halyard for Visual Basic";

// The sibling tool keeps its entries in the same file under its own title; only the project
// dialog reads them. Also fixed by the files already written.
constexpr const char* kSiblingHistorySection = "Tamarin Glosser for Visual Basic";

// The name of the history file when the settings name none; it lives in the settings directory.
constexpr const char* kDefaultHistoryFileName = "TMRHIST.TMR";

// Writes the entry of the current file (last-saved time "|" the present moment), unless keeping
// a history is off or the print request asked not to update it. Called as printing of a file
// starts, so a cancelled run still counts as printed.
void SaveHYInfo(bool noHistoryFlag = false);

// The history file the settings name, as it is written.
std::string historyFilePath();

// True when the file changed since it was last printed: no entry, an entry without a readable
// printing time, or a printing time before the file's last-saved time. The same second is not
// newer. A vanished file raises error 53 once its time is needed.
bool fbIsNewer(const std::string& fileName);

// The same test, taking the file's time first: a vanished file raises error 53 even when it
// was never printed.
bool bIsNewer(const std::string& fileName);

// The entry of a file in a section of the history, empty when there is none.
std::string historyEntry(const std::string& fileName, const char* section = kHistorySection);

// The printing time of an entry, the part after its first "|"; nothing when the entry has no
// such part or the part is not a date.
std::optional<std::time_t> printingTimeOf(const std::string& entry);

// The locale's symbols for the two halves of the day.
struct AmPmSymbols {
    std::string am;
    std::string pm;
};

// The symbols of the user's time locale, "AM" and "PM" where the locale has none.
const AmPmSymbols& localeAmPm();

// "M/DD/YYYY h:mm:ss ampm": how the file's last-saved time is written.
std::string formatFileTime(std::time_t t, const AmPmSymbols& symbols = localeAmPm());

// "MM/DD/YYYY h:mm:ss ampm": how the moment of printing is written.
std::string formatPrintTime(std::time_t t, const AmPmSymbols& symbols = localeAmPm());

// "M/D/YYYY h:mm:ss ampm": a moment in the system's default text form.
std::string formatDefaultDateTime(std::time_t t, const AmPmSymbols& symbols = localeAmPm());

// A local date and time as either format writes it: month, day and hour of one or two digits,
// a four-digit year, seconds optional, then the locale's symbol or a plain "AM"/"PM" in any
// case; without a symbol the hour counts from 0 to 23. Nothing when the text is not a date.
std::optional<std::time_t> parseHistoryDate(const std::string& text, const AmPmSymbols& symbols = localeAmPm());

// The file's last-saved time in whole seconds; raises the platform's file error (53 for a
// missing file) when the file cannot be asked.
std::time_t fileLastSaved(const std::string& fileName);

}  // namespace hlyd
