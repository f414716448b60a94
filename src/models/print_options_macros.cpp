#include "models/print_options_macros.h"

#include <algorithm>

#include "printing/heading_macro_tips.h"

namespace hlyd {

namespace {

// Ten characters to a button.
constexpr const char* kStrip =
        "< >       @Date     @Time     @Page     @FileDate @FileTime @User     @Company  @FileName @Path< >  "
        "@ProcName @VBName   @Project  @Ask      |         ";
constexpr std::size_t kCaptionWidth = 10;
constexpr int kFirstTip = 201;

std::vector<std::string> captionsOfStrip() {
    std::string strip = kStrip;
    std::vector<std::string> captions;
    for (int i = 0; i < kMacroButtons; ++i) {
        std::string caption = strip.substr(i * kCaptionWidth, kCaptionWidth);
        caption.erase(caption.find_last_not_of(' ') + 1);
        captions.push_back(caption);
    }
    return captions;
}

}  // namespace

const std::vector<std::string>& macroButtonCaptions() {
    static const std::vector<std::string> captions = captionsOfStrip();
    return captions;
}

const char* macroButtonTip(int button) { return headingMacroTip(kFirstTip + button); }

const std::string& macroStripHint() {
    static const std::string hint =
            "Select a Header or Footer Section, Then click on the desired button. \n"
            "Position the mouse over the button to determine the button function.";
    return hint;
}

bool insertMacro(PrintOptionsModel& m, int button) {
    if (m.focusedSection < 0 || m.focusedSection >= kHeadingSections || button < 0 || button >= kMacroButtons)
        return false;
    std::string& text = m.v.txtHeading[m.focusedSection];
    std::string piece = macroButtonCaptions()[button] + "; ";
    m.cursor = std::min(m.cursor, text.size());
    text.insert(m.cursor, piece);
    m.cursor += piece.size();
    return true;
}

}  // namespace hlyd
