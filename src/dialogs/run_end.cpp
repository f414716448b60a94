#include "dialogs/run_end.h"

#include "platform/printer.h"
#include "platform/ui.h"
#include "printing/print_state.h"
#include "settings/window_place.h"
#include "shell/command_line_job.h"

namespace hlyd {

int endQtRun(int rc) {
    resetPrintState();
    setPrinterSystem(nullptr);
    setUi(nullptr);
    setScreensUnknown(false);
    return rc != 0 ? rc : commandLineJob().exitStatus;
}

}  // namespace hlyd
