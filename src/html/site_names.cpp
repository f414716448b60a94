#include "html/site_names.h"

#include <cctype>
#include <set>

#include "platform/char_case.h"

namespace hlyd {

namespace {

// Long enough to tell members apart, short enough for any file system with room to spare.
constexpr std::size_t kLongestStem = 80;

// "Forms/Main Form.frm" as "Main_Form-frm": the extension stays, so that a form and a module of
// one name get pages of their own names.
std::string safeStem(const std::string& file) {
    std::size_t slash = file.find_last_of("\\/");
    std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
    std::string stem;
    for (char c : name) {
        auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) && byte < 0x80) stem += c;
        else stem += c == '.' ? '-' : '_';
        if (stem.size() == kLongestStem) break;
    }
    return stem.empty() ? "member" : stem;
}

}  // namespace

std::vector<std::string> sitePageNames(const std::vector<std::string>& files) {
    std::set<std::string> taken = {upperCase(kSiteIndexPage)};
    std::vector<std::string> names;
    for (const std::string& file : files) {
        std::string stem = safeStem(file);
        std::string name = stem + ".html";
        for (int n = 2; taken.count(upperCase(name)) != 0; ++n) name = stem + "-" + std::to_string(n) + ".html";
        taken.insert(upperCase(name));
        names.push_back(name);
    }
    return names;
}

}  // namespace hlyd
