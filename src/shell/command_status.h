#pragma once
// The status label between commands: at rest it reads "Ready".
namespace hlyd {

// Once a command (from the menu, the toolbar or the view) is over, a label that only told the
// progress of the command comes back to "Ready"; a result the user is to read stays.
void settleStatusAfterCommand();

}  // namespace hlyd
