#pragma once
// Dates and times as the user's locale writes them in the medium and short forms that page
// headings show: "14-Nov-23" and "22:13" in English.
#include <ctime>
#include <string>

#include "platform/os.h"

namespace hlyd {

// Day, the locale's short month name and the year in two digits, joined by "-".
std::string mediumDateText(std::time_t t);
// Hours (0 to 23) and minutes in two digits each, joined by the locale's time separator.
std::string shortTimeText(std::time_t t);

// The same from a broken-down time and given locale facts; where the facts are empty the
// English names and ":" stand in.
std::string mediumDateText(const std::tm& tm, const os::LocaleFacts& facts);
std::string shortTimeText(const std::tm& tm, const os::LocaleFacts& facts);

}  // namespace hlyd
