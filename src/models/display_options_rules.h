#pragma once
// The rules of the Display Options dialog on its extension lists and its dialect choice. They
// never raise: a refusal is a text in lblMessage, and the focus stays in the field.
#include <string>

#include "models/display_options_model.h"

namespace hlyd {

// The candidate typed into list `index` leaves the field: it joins the list unless refused.
void cboExtension_LostFocus(DisplayOptionsModel& m, int index, const std::string& text);
// A double click removes the extension shown, but never the last one of a list.
void cboExtension_DblClick(DisplayOptionsModel& m, int index, const std::string& shown);

// Makes sure the extensions of that language version are in the lists; never takes one out.
void optDialect_Click(DisplayOptionsModel& m, int index);
void optAutoDetect_Click(DisplayOptionsModel& m, int index);
// lblDialect for the detection chosen.
std::string dialectExplanation(int optAutoDetect);

// Whether "*." and the text is a pattern the directory search takes.
bool extensionPatternLegal(const std::string& text);

}  // namespace hlyd
