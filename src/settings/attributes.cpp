#include "settings/attributes.h"

#include "settings/settings_state.h"

namespace hlyd {

namespace {
const std::array<std::string, kElementCount + 1> kElementNames = {"",           "Comments",        "Identifiers",
                                                                  "KeyWords",   "Literals",        "Project File",
                                                                  "Procedures", "Headers/Footers", "Line Numbers"};

}  // namespace

DisplayAttributes namedDisplayAttributes() {
    DisplayAttributes a;
    for (int e = 1; e <= kElementCount; ++e) a.Elements[e].Name = kElementNames[e];
    return a;
}

const std::string& elementName(int element) {
    return kElementNames[element >= 1 && element <= kElementCount ? element : 0];
}

const char* destinationName(Destination destination) { return destination == kPrint ? "Print" : "Display"; }

DisplayAttributes& displayAttributes() { return settingsState().attributes; }

}  // namespace hlyd
