#pragma once
// Every message box of the program: the text goes to the log as one marked entry, then to the Ui.
#include <string>

#include "platform/ui.h"

namespace hlyd {

MsgAnswer showMessage(const std::string& text, const std::string& title, MsgButtons buttons = MsgButtons::OK,
                      MsgIcon icon = MsgIcon::None, int defaultButton = 1);

}  // namespace hlyd
