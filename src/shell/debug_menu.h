#pragma once
// The Debug menu, shown by the DebugMenu setting: the log file opened and closed at will, and the
// switches of what is traced and whether failures are trapped. The toggles' check marks follow
// their switches in the window model.
#include <optional>
#include <string>
#include <vector>

#include "base/c_debug.h"
#include "files/output_guard.h"

namespace hlyd {

// Asks for a log file, starting from the log's name, or from DB_HLYD.LOG in the settings directory
// when it has none. An existing file is picked to append to, any name to create. Nothing on cancel.
std::optional<std::string> HlydMSOpenLogFile(bool forAppend);

// Opens the log unless it would write over a file of the user's (see output_guard.h); a refused
// log is told when `tell` is set, and its lines stay queued. `inputs` are files of the run not yet
// in the table.
bool openLogChecked(const OutputTarget& log, bool forAppend, const std::vector<std::string>& inputs, bool tell);

struct DebugMenuItem {
    const char* name;  // the control's name, as the window model knows it
    const char* caption;
    bool cDebug::*flag;  // the switch a toggle flips; none for the log file items
    void (*run)();       // what a log file item does
};

// The menu's items in order.
const std::vector<DebugMenuItem>& debugMenuItems();
// Carries out an item, then sets the check marks.
void mnuDebug_Click(const DebugMenuItem& item);

// The check marks from the switches as they stand.
void sbDebugMenuSet();

}  // namespace hlyd
