#include "base/mail_link.h"

#include <utility>

#include "platform/ui.h"

namespace hlyd {

std::string encodeMailBody(const std::string& body) {
    // One pass does what replacing each character in turn would: no replacement holds another
    // of the characters replaced.
    static const std::pair<char, const char*> kReplacements[] = {
            {' ', "%20"}, {',', "%2C"}, {'?', "%3F"}, {'.', "%2E"}, {':', "%3A"}, {';', "%3B"},
    };
    std::string out;
    out.reserve(body.size());
    for (char c : body) {
        const char* replacement = nullptr;
        for (const auto& [from, to] : kReplacements)
            if (c == from) replacement = to;
        if (replacement) out += replacement;
        else out += c;
    }
    return out;
}

std::string mailLink(const std::string& address, const std::string& subject, const std::string& body) {
    std::string link = address;
    if (!subject.empty()) link += "?subject=" + subject;
    if (!body.empty()) link += "&body=" + encodeMailBody(body);
    return link;
}

void JumpToURL(const std::string& address, const std::string& subject, const std::string& body) {
    theUi().openUrl(mailLink(address, subject, body));
}

}  // namespace hlyd
