#pragma once
// A project or group file on paper: its lines as the listing shows them, in one column.
#include <string>

#include "printing/print_state.h"

namespace hlyd {

void EmitProjectFile(wPos& pos);
// One line, wrapped to the width; starts a page when the next line would pass the bottom.
void EmitProjectRecord(const std::string& line, wPos& pos);

}  // namespace hlyd
