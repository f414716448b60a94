#include "shell/command_status.h"

#include <string>

#include "files/main_window_model.h"

namespace hlyd {

namespace {

bool startsWith(const std::string& text, const char* prefix) { return text.rfind(prefix, 0) == 0; }

// Texts that stand while work goes on: the toolbar's own, the load's and the walk's progress,
// and an HTML export that has not finished.
bool onlyProgress(const std::string& status) {
    return status.empty() || status == "Processing..." || startsWith(status, "Line:") ||
           startsWith(status, " Lines ") || startsWith(status, "Generating HTML for file ");
}

}  // namespace

void settleStatusAfterCommand() {
    std::string& status = mainWindow().lblStatus;
    if (onlyProgress(status)) status = "Ready";
}

}  // namespace hlyd
