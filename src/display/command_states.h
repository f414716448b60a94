#pragma once
// The rules that switch the main window's commands on and off as the file and the procedure
// shown change. They stand here, below the command handlers, because viewing moves through
// files and procedures and must set the buttons as it goes; the handlers above call them too.
#include <string>

namespace hlyd {

// Sets a command's `enabled`; a toolbar button's tip follows it.
void setCommand(const std::string& name, bool enabled);
void setButtonAndMenu(const std::string& button, const std::string& menu, bool enabled);
// Gives every toolbar button its caption and the tip that goes with its state.
void setButtonFaces();

void sbProcButtonsSet();
void sbFileButtonSet();

}  // namespace hlyd
