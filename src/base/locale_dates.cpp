#include "base/locale_dates.h"

#include "base/text_format.h"
#include "platform/clock.h"

namespace hlyd {

namespace {
constexpr const char* kEnglishMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
}  // namespace

std::string mediumDateText(const std::tm& tm, const os::LocaleFacts& facts) {
    const std::string& month = facts.monthAbbreviations[tm.tm_mon];
    return zeroPad(tm.tm_mday, 2) + "-" + (month.empty() ? kEnglishMonths[tm.tm_mon] : month) + "-" +
           zeroPad((tm.tm_year + 1900) % 100, 2);
}

std::string shortTimeText(const std::tm& tm, const os::LocaleFacts& facts) {
    const std::string& separator = facts.timeSeparator.empty() ? std::string(":") : facts.timeSeparator;
    return zeroPad(tm.tm_hour, 2) + separator + zeroPad(tm.tm_min, 2);
}

std::string mediumDateText(std::time_t t) { return mediumDateText(localTime(t), os::userLocale()); }
std::string shortTimeText(std::time_t t) { return shortTimeText(localTime(t), os::userLocale()); }

}  // namespace hlyd
