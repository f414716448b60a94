#pragma once
// The paper a printer starts with when the settings name none: what the user's region uses.
#include <cstdint>
#include <string>

namespace hlyd {

// Classic paper codes, as the settings keep them.
inline constexpr std::int16_t kPaperLetter = 1;
inline constexpr std::int16_t kPaperA4 = 9;

// Letter in the United States and Canada, A4 everywhere else. The C and POSIX locales give
// Letter too: they are what a build machine runs in, and its printed pages stay as they were.
// `localeName` is as the environment or the system names it: "de_DE.UTF-8", "en-US", "C".
std::int16_t paperForLocale(const std::string& localeName);

}  // namespace hlyd
