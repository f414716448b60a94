#pragma once
// The Window menu's Project Window: the open project's member dialog, shown again.
namespace hlyd {

// Whether there is an open project whose dialog can be shown again.
bool projectWindowAvailable();

// Shows the dialog with the marks of the open files. OK makes the checked members the open files:
// newly checked members open, unchecked ones close, and the file in view stays in view while it
// is still open (else the project's listing is shown). Cancel changes nothing.
void mnuWinProjectWindow_Click();

}  // namespace hlyd
