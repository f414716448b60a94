// The entry of the print part: the program's executable hands a run over to it when the run prints
// to the PDF printer alone, without a window. The part reads the command line afresh, as the window
// part does.
#include <string>
#include <vector>

#include "base/app_info.h"
#include "dialogs/pdf_run.h"
#include "shell/batch_options.h"
#include "shell/command_line_job.h"
#include "shell/session.h"

extern "C" __attribute__((visibility("default"))) int hlydPrintMain(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    hlyd::BatchOptions options = hlyd::parseBatchOptions(std::vector<std::string>(argv + (argc > 0), argv + argc));
    hlyd::commandLineJob().options = options;
    return hlyd::runPdfPrint(argc, argv, options.commandLine);
}
