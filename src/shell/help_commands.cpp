#include "shell/help_commands.h"

#include <filesystem>

#include "base/app_info.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "platform/os.h"
#include "platform/ui.h"
#include "shell/app_start.h"

namespace fs = std::filesystem;

namespace hlyd {

// The pages lie beside the index that was found, so that one installed copy never mixes its
// pages with another's.
void showHelpPage(const std::string& page) {
    std::string path = (fs::path(hlydMain().HelpFile).parent_path() / page).string();
    theLog().LogData("Help page=" + path);
    if (!theUi().openFile(path))
        showMessage("The help page could not be opened:\n" + path + "\n\nPlease open it in a web browser.",
                    theAppInfo().Title, MsgButtons::OK, MsgIcon::Information);
}

std::string helpIndexPath() { return dataFilePath(kHelpIndexPage); }

bool helpAvailable() {
    const std::string& index = hlydMain().HelpFile;
    return !index.empty() && os::fileInfo(index).exists();
}

void mnuHelContents_Click() { showHelpPage("index.html"); }
void mnuHelSearch_Click() { showHelpPage("topics.html"); }
void mnuHelHelp_Click() { showHelpPage("using-help.html"); }

}  // namespace hlyd
