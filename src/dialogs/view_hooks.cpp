#include "dialogs/view_hooks.h"

#include <cstdint>

#include "display/screen_emitter.h"
#include "files/main_window_model.h"
#include "files/project_listing.h"

namespace hlyd {

void installViewHooks() {
    MainWindowModel& w = mainWindow();
    // From record 1, so that a file whose leading lines are hidden has its scroll bar begin at the
    // first line shown.
    w.emitRequestedData = [] {
        std::int32_t record = 1;
        HlydDSEmitRequestedData(record);
    };
    w.showProject = [] { HlydPFProcess(); };
}

}  // namespace hlyd
