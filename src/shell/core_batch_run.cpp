#include "shell/core_batch_run.h"

#include "analysis/source_file.h"
#include "platform/console_ui.h"
#include "platform/os.h"
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

namespace {

// Asked before the tables are first made: asked only when the file opens, their first chunks would
// already lie in small pages (measured: 150 faults of a 2.3 MB module's 450).
void preferLargePagesForLargeFiles(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        if (os::FileInfo info = os::fileInfo(file); info.regular() && info.size >= SourceFile::kLargeFileBytes) {
            os::preferLargeMemoryPages();
            return;
        }
    }
}

}  // namespace

int runOnCoreAlone(const BatchOptions& options) {
    preferLargePagesForLargeFiles(options.files);
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
