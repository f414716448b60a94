#include "models/display_options_rules.h"

#include <algorithm>
#include <vector>

#include "platform/char_case.h"
#include "platform/ui.h"

namespace hlyd {

namespace {

constexpr const char* kFocusExtension[] = {"cboExtension0", "cboExtension1", "cboExtension2"};

std::string trimmed(const std::string& text) {
    const char* blanks = " \t";
    std::string::size_type first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool listHolds(const std::vector<std::string>& list, const std::string& upper) {
    return std::find(list.begin(), list.end(), upper) != list.end();
}

void ensureInList(std::vector<std::string>& list, const std::string& extension) {
    if (!listHolds(list, extension)) list.push_back(extension);
}

void refuse(DisplayOptionsModel& m, int index, const std::string& message) {
    m.lblMessage = message;
    m.focus = kFocusExtension[index];
}

}  // namespace

// A file name here cannot hold "/" or a NUL, and the settings read "\" as a separator of
// directories too; "|" separates the entries of the saved list, and a blank would split one
// extension in two when the list is read back in the older blank-separated form.
bool extensionPatternLegal(const std::string& text) {
    for (unsigned char c : text)
        if (c < 0x20 || c == 0x7F || c == '/' || c == '\\' || c == '|' || c == ' ') return false;
    return true;
}

void cboExtension_LostFocus(DisplayOptionsModel& m, int index, const std::string& text) {
    std::string candidate = trimmed(text);
    if (candidate.empty()) return;
    if (index == kExtProject && candidate.find_first_of("*?") != std::string::npos) {
        refuse(m, index, "Project-file extension may not contain wild-card characters.");
        theUi().beep();
        return;
    }
    if (!extensionPatternLegal(candidate)) return refuse(m, index, "File-extension is illegal.");
    std::vector<std::string>& list = m.cboExtension[static_cast<std::size_t>(index)];
    std::string upper = upperCase(candidate);
    if (listHolds(list, upper)) return refuse(m, index, "You already have an extension of " + candidate);
    list.push_back(upper);
    m.lblMessage.clear();
    m.changed = true;
}

void cboExtension_DblClick(DisplayOptionsModel& m, int index, const std::string& shown) {
    std::vector<std::string>& list = m.cboExtension[static_cast<std::size_t>(index)];
    auto found = std::find(list.begin(), list.end(), upperCase(trimmed(shown)));
    if (found == list.end()) return;
    if (list.size() == 1) return refuse(m, index, "You may not remove all File-extensions from the list.");
    list.erase(found);
    m.lblMessage.clear();
    m.changed = true;
}

void optDialect_Click(DisplayOptionsModel& m, int index) {
    m.changed = true;
    m.optDialect = index;
    auto& lists = m.cboExtension;
    if (index >= 1 && index <= 2) {
        ensureInList(lists[kExtCode], "CLS");
        ensureInList(lists[kExtProject], "VBP");
        if (index == 2) {
            for (const char* form : {"CTL", "DOB", "PAG"}) ensureInList(lists[kExtForms], form);
            ensureInList(lists[kExtProject], "VBG");
        } else if (index == 3) {
            // Never reached, as the test above shuts version 6 out: its lists have always been
            // left as they are, and users' settings files were made so.
            ensureInList(lists[kExtForms], "DSR");
        }
    }
}

std::string dialectExplanation(int optAutoDetect) {
    if (optAutoDetect == kDetectAuto)
        return "All files whose language dialect can be determined will be processed according to the rules of "
               "that Dialect.\nAll Files whose language dialect is ambiguous will be processed according to the "
               "rules of the Default Dialect.";
    return "All files will be processed according to the current Default Dialog selection.";
}

void optAutoDetect_Click(DisplayOptionsModel& m, int index) {
    m.changed = true;
    m.optAutoDetect = index;
    m.lblDialect = dialectExplanation(index);
}

}  // namespace hlyd
