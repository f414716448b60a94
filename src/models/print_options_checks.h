#pragma once
// The checks of the print options. Each reads its field, stores an accepted value in the working
// copy, and says what is wrong in lblMessage; none raises. A refusal leaves the focus in its
// field and PrintStatus at 4.
#include <string>

#include "models/print_options_model.h"

namespace hlyd {

// txtColumns: a number of columns the page can have; one column has no spacing.
bool sbValidateNumberOfCol(PrintOptionsModel& m);
// txtSpacing ("SPACING") or txtWidth ("WIDTH").
bool sbPageLayoutValidateColSpecs(PrintOptionsModel& m, const std::string& which);
// txtMargin: "TOP", "BOTTOM", "LEFT" or "RIGHT"; not less than the printer's unprintable strip.
bool sbPageLayoutValidateMargin(PrintOptionsModel& m, const std::string& which);
// The margins and columns on the printer in force, tried on a scratch area.
bool sbValidateBounds(PrintOptionsModel& m);
// The column width the margins leave, into txtWidth; false when they leave no area to divide.
bool sbPageLayoutUpdateColSpecs(PrintOptionsModel& m);

// The line number fields take digits and the edit keys only.
bool acceptsLineNumberKey(char key);
bool validateLineNumberIncrement(PrintOptionsModel& m);
bool validateLineNumberStart(PrintOptionsModel& m);
// Orphan lines, indent amount and tab width.
bool validateFormatNumbers(PrintOptionsModel& m);

// Every macro of the header and footer sections is one that the headings know.
bool validateHeadingTemplates(PrintOptionsModel& m);

}  // namespace hlyd
