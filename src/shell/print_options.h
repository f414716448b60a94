#pragma once
// The print options' procedure: fills the form from the settings and shows it; the form's OK
// applies and saves the options.
#include "models/print_options_model.h"

namespace hlyd {

// True when the user accepted the options: the window shows the form modally, and the model's
// handlers do the work. Without a window the form is taken as filled and OK pressed once.
bool HlydPOShowPrintOptions();

}  // namespace hlyd
