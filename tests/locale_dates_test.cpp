// Dates and times in the forms the page headings print.
#include <gtest/gtest.h>

#include "base/locale_dates.h"
#include "platform/text_encoding.h"

namespace hlyd {
namespace {

TEST(LocaleDates, MediumDateAndShortTimeFollowTheLocaleFacts) {
    std::tm tm{};
    tm.tm_year = 2023 - 1900, tm.tm_mon = 2, tm.tm_mday = 5, tm.tm_hour = 7, tm.tm_min = 4;
    os::LocaleFacts english;
    EXPECT_EQ(mediumDateText(tm, english), "05-Mar-23");
    EXPECT_EQ(shortTimeText(tm, english), "07:04");
    os::LocaleFacts german;
    german.monthAbbreviations[2] = "M\xE4r";
    german.timeSeparator = ".";
    EXPECT_EQ(mediumDateText(tm, german), "05-M\xE4r-23");
    EXPECT_EQ(shortTimeText(tm, german), "07.04");
    // The system's UTF-8 names arrive as single-byte text.
    EXPECT_EQ(utf8ToCp1252("M\xC3\xA4r \xE2\x82\xAC \xE2\x86\x92 \xC3"), "M\xE4r \x80 ? ?");
}

}  // namespace
}  // namespace hlyd
