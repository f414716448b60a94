#include "shell/print_options.h"

#include <optional>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "platform/views.h"

namespace hlyd {

bool HlydPOShowPrintOptions() {
    TraceScope trace(theDebug().TraceApplication, "HlydPOShowPrintOptions");
    PrintOptionsModel m;
    fillPrintOptions(m);
    if (std::optional<bool> accepted = theViews().showPrintOptions(m)) return *accepted;
    return cmdOK_Click(m);
}

}  // namespace hlyd
