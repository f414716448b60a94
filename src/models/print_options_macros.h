#pragma once
// The strip of macro buttons beside the header and footer sections: its captions, tips and hint,
// and what a click puts into the section that has the focus.
#include <string>
#include <vector>

#include "models/print_options_model.h"

namespace hlyd {

constexpr int kMacroButtons = 15;

// The captions of the 15 buttons, from left to right.
const std::vector<std::string>& macroButtonCaptions();
// The tool tip of a button, from 0.
const char* macroButtonTip(int button);
// The hint shown beside the strip.
const std::string& macroStripHint();

// Inserts the button's macro and "; " at the cursor of the focused section and moves the cursor
// behind it. False when no section has the focus.
bool insertMacro(PrintOptionsModel& m, int button);

}  // namespace hlyd
