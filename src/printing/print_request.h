#pragma once
// The print command: the Print dialog, then a run over the files it chose, the table of contents
// last, and the window brought back to the file that was on screen.
#include <functional>
#include <string>

#include "printing/print_dialog_request.h"

namespace hlyd {

// The dialog step of the command: the user's choices read into the request; false when the user
// cancels. The shell hands down the Print dialog's procedure, which printing/ cannot include.
using PrintDialogStep = std::function<bool(PrintDialogRequest&)>;

// One whole print command. The dialog step is skipped when the settings say not to show it.
void HlydPRProcessPrintRequest(const PrintDialogStep& askUser);

// The procedure shown in the window, printed at once with the settings in force.
void printThisProcedure();

// The stop command of the window during a run: asks first, and on Yes stops at the next page.
void stopPrinting();

}  // namespace hlyd
