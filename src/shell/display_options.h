#pragma once
// The Display Options command: fills the dialog from the records, shows it, and on acceptance
// writes the records and the settings file, checks the fonts on the screen and draws the view anew.
#include "models/display_options_model.h"

namespace hlyd {

// mnuOptionsDisplay, tbrDisplayOptions and the popup item. The window shows the form modally,
// passes the user's clicks to the handlers, and returns when the form closes (by cmdOk_Click,
// cmdCancel or Form_QueryUnload). Without a window nothing is shown, so nothing is accepted.
void mnuOptionsDisplay_Click();

// False when a field is refused: lblMessage says why and the dialog stays open.
bool cmdOk_Click(DisplayOptionsModel& m);

// The file dialog of the default location; the folder of the file chosen goes to the field.
void cmdDefaultFileLoc_Click(DisplayOptionsModel& m);

// Closing the form another way than by its buttons: with changes the user is asked whether to
// save them. Returns whether the form may close (after saving or dropping the edits).
bool Form_QueryUnload(DisplayOptionsModel& m);

}  // namespace hlyd
