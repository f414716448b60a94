#pragma once
// The print command: the Print dialog, then a run over the files it chose, the table of contents
// last, and the window brought back to the file that was on screen.
#include <string>

namespace hlyd {

// One whole print command.
void HlydPRProcessPrintRequest();

// The procedure shown in the window, printed at once with the settings in force.
void printThisProcedure();

// The stop command of the window during a run: asks first, and on Yes stops at the next page.
void stopPrinting();

}  // namespace hlyd
