// The entry of the window part: the program's executable hands a run over to it when the run needs
// the window system. The part reads the command line afresh, so that its run is exactly the one
// the program always made.
#include <string>
#include <vector>

#include "base/app_info.h"
#include "dialogs/qt_application.h"
#include "shell/batch_options.h"
#include "shell/command_line_job.h"
#include "shell/session.h"

extern "C" __attribute__((visibility("default"))) int hlydWindowMain(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    hlyd::BatchOptions options = hlyd::parseBatchOptions(std::vector<std::string>(argv + (argc > 0), argv + argc));
    hlyd::commandLineJob().options = options;
    return hlyd::runWindowed(argc, argv, options.commandLine);
}
