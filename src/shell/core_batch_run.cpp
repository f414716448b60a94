#include "shell/core_batch_run.h"

#include "platform/console_ui.h"
#include "platform/printer.h"
#include "printing/print_state.h"
#include "settings/window_place.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"
#include "shell/start_mode.h"

namespace hlyd {

bool runsOnCoreAlone(const BatchOptions& options) {
    if (runPrints(options) || !options.openFiles.empty()) return false;
    return decideStartMode(kStartStandalone, options.commandLine) == kStartCommandLineFile;
}

int runOnCoreAlone(const BatchOptions& options) {
    commandLineJob().options = options;
    ConsoleUi ui;
    ui.saveAs = options.htmlOut;
    setUi(&ui);
    setPrinterSystem(nullptr);
    setScreensUnknown(true);
    int rc = Main(options.commandLine);
    setScreensUnknown(false);
    resetPrintState();
    setUi(nullptr);
    return rc != 0 ? rc : commandLineJob().exitStatus;
}

}  // namespace hlyd
