#include "html_dump.h"

#include "platform/os.h"

#include "base/hlyd_error.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/open_for_run.h"
#include "html/html_emit.h"
#include "platform/console_ui.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "tool_errors.h"

namespace hlyd {

int dumpHtml(const std::string& outPath, const std::string& path, std::ostream& err) {
    if (unreadableFile("hlyd-dump", path, err)) return 2;
    queryLocaleSeparators();
    loadSettingsAtStartup();
    // The document names its source with its full path, as a file chosen in the Open dialog has.
    std::string source = os::absolutePath(path);
    ConsoleUi ui;
    ui.saveAs = outPath;
    setUi(&ui);
    openFileForRun(source);
    int status = 0;
    if (oFile().Count() == 0) {
        err << "hlyd-dump: " << source << " gave nothing to export\n";
        status = 1;
    } else {
        HlydFLProcessSelectedFile(1);
        // A refused output has been told; a script learns it from the status.
        if (!HTMLEmitAFile()) status = 3;
    }
    setUi(nullptr);
    return status;
}

}  // namespace hlyd
