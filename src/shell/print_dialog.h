#pragma once
// The Print dialog's procedure: fills the form, shows it, and turns the user's choices into the
// request that the print command runs.
#include "models/print_dialog_model.h"
#include "printing/print_dialog_request.h"

namespace hlyd {

// The window shows the form modally and passes the user's clicks to the model's handlers. False
// when the user cancels. Without a window the form is taken as filled, OK pressed once.
bool HlydHLYDPrintProcessDialog(PrintDialogRequest& request);

}  // namespace hlyd
