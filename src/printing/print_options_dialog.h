#pragma once
// The print options' procedure: fills the form from the settings and shows it; the form's OK
// applies and saves the options.
#include <functional>

#include "printing/print_options_model.h"

namespace hlyd {

// The window shows the form modally and returns true when cmdOK_Click let it close; the model's
// handlers do the work.
using PrintOptionsView = std::function<bool(PrintOptionsModel& m)>;
void setPrintOptionsView(PrintOptionsView view);

// True when the user accepted the options. Without a window the form is taken as filled and OK
// pressed once.
bool HlydPOShowPrintOptions();

}  // namespace hlyd
