#include "base/message_box.h"

#include "base/c_log.h"

namespace hlyd {

MsgAnswer showMessage(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon,
                      int defaultButton) {
    logBlock(text);
    return theUi().messageBox(MessageBoxRequest{text, title, buttons, icon, defaultButton});
}

}  // namespace hlyd
