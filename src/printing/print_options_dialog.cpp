#include "printing/print_options_dialog.h"

#include <utility>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "printing/printing_state.h"

namespace hlyd {

namespace {
PrintOptionsView& optionsView() { return printingState().printOptionsView; }
}  // namespace

void setPrintOptionsView(PrintOptionsView view) { optionsView() = std::move(view); }

bool HlydPOShowPrintOptions() {
    TraceScope trace(theDebug().TraceApplication, "HlydPOShowPrintOptions");
    PrintOptionsModel m;
    fillPrintOptions(m);
    if (optionsView()) return optionsView()(m);
    return cmdOK_Click(m);
}

}  // namespace hlyd
