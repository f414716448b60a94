#include "settings/attributes.h"

#include <memory>

namespace hlyd {

namespace {
const std::array<std::string, kElementCount + 1> kElementNames = {"",           "Comments",        "Identifiers",
                                                                  "KeyWords",   "Literals",        "Project File",
                                                                  "Procedures", "Headers/Footers", "Line Numbers"};

std::unique_ptr<DisplayAttributes> makeAttributes() {
    auto a = std::make_unique<DisplayAttributes>();
    for (int e = 1; e <= kElementCount; ++e) a->Elements[e].Name = kElementNames[e];
    return a;
}
std::unique_ptr<DisplayAttributes> attributes = makeAttributes();
}  // namespace

const std::string& elementName(int element) {
    return kElementNames[element >= 1 && element <= kElementCount ? element : 0];
}

const char* destinationName(int displayOrPrint) { return displayOrPrint == kPrint ? "Print" : "Display"; }

DisplayAttributes& displayAttributes() { return *attributes; }
void resetDisplayAttributes() { attributes = makeAttributes(); }

}  // namespace hlyd
