#include "settings/locale_paper.h"

#include <algorithm>
#include <array>

namespace hlyd {

namespace {

// "de_DE.UTF-8@euro" and "de-DE" both give "de_DE".
std::string languageAndRegion(const std::string& name) {
    std::string bare = name.substr(0, name.find_first_of(".@"));
    std::replace(bare.begin(), bare.end(), '-', '_');
    return bare;
}

}  // namespace

std::int16_t paperForLocale(const std::string& localeName) {
    static const std::array<const char*, 7> letterLocales = {"", "C", "POSIX", "en_US", "en_CA", "fr_CA", "es_US"};
    std::string bare = languageAndRegion(localeName);
    for (const char* letter : letterLocales)
        if (bare == letter) return kPaperLetter;
    return kPaperA4;
}

}  // namespace hlyd
