#pragma once
// A Ui for programs without a window: every message box answers with its default button, and
// its text goes to standard error so that nothing the user should see is lost.
#include <cstdio>
#include <optional>
#include <string>

#include "platform/ui.h"

namespace hlyd {

// The answer of a box that nobody can see: its default button, except that Retry becomes
// Cancel (Abort in an Abort/Retry/Ignore box), since nothing changes between two tries and the
// run would never end. An answer other than OK is told on `note`.
MsgAnswer windowlessAnswer(const MessageBoxRequest& request, std::FILE* note);

class ConsoleUi : public Ui {
public:
    MsgAnswer messageBox(const MessageBoxRequest& request) override;
    // A save dialog nobody sees answers with the path the command line gave, or cancels.
    std::optional<std::string> saveFileDialog(const FileDialogRequest&) override { return saveAs; }
    std::optional<std::string> saveAs;
};

// The Ui of every Session that was given none. It keeps nothing of a run.
ConsoleUi& sharedConsoleUi();

}  // namespace hlyd
