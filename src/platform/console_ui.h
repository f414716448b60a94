#pragma once
// A Ui for programs without a window: every message box answers with its default button, and
// its text goes to standard error so that nothing the user should see is lost.
#include "platform/ui.h"

namespace hlyd {

class ConsoleUi : public Ui {
public:
    MsgAnswer messageBox(const MessageBoxRequest& request) override;
};

}  // namespace hlyd
