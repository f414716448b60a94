// The application's entry: our batch options taken out, the rest of the command line as one text,
// as the start-mode rules read it, and a run with windows (or, for a file to print, without).
#include <iostream>
#include <string>
#include <vector>

#include "base/app_info.h"
#include "dialogs/qt_application.h"
#include "shell/batch_options.h"
#include "shell/command_line_job.h"

int main(int argc, char** argv) {
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
    hlyd::commandLineJob().options = options;
    return hlyd::runWindowed(argc, argv, options.commandLine);
}
