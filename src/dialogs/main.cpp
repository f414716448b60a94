// The application's entry: our batch options taken out, the rest of the command line as one text,
// as the start-mode rules read it. What needs no window system (the HTML export, help, version and
// a misused option) runs here on the core; so does a print to the PDF printer alone whose faces
// an earlier print found, else it goes to the print part; every other run goes to the window part.
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "base/app_info.h"
#include "platform/os.h"
#include "shell/batch_options.h"
#include "shell/command_line_job.h"
#include "shell/core_batch_run.h"
#include "shell/pdf_core_run.h"
#include "shell/window_part.h"
#include "shell/session.h"

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    hlyd::BatchOptions options = hlyd::parseBatchOptions(std::vector<std::string>(argv + (argc > 0), argv + argc));
    if (!options.error.empty()) {
        std::cerr << "halyard: " << options.error << '\n' << hlyd::batchUsageLine() << "(see halyard --help)\n";
        return hlyd::kExitUsage;
    }
    if (options.help) {
        std::cout << hlyd::batchUsage();
        return 0;
    }
    if (options.version) {
        std::cout << hlyd::theAppInfo().Title << ' ' << hlyd::theAppInfo().Version << '\n';
        return 0;
    }
    if (hlyd::runsOnCoreAlone(options)) return hlyd::runOnCoreAlone(options);
    // Printing and the windows hold fonts and pages of megabytes from their start.
    hlyd::os::preferLargeMemoryPages();
    if (hlyd::printsToPdfAlone(options)) {
        if (std::optional<int> rc = hlyd::runPdfOnCore(options)) return *rc;
        return hlyd::runPrintPart(argc, argv);
    }
    return hlyd::runWindowPart(argc, argv);
}
