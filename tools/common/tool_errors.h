#pragma once
// How a tool without a window ends on a run-time fault: one line on standard error, status 1.
#include <iosfwd>
#include <string>

#include "base/hlyd_error.h"

namespace hlyd {

int reportToolError(const char* tool, const HlydError& error, std::ostream& err);

// Whether `path` is no regular file that can be read, told on `err` with its reason: a device,
// FIFO or directory would be read for ever, or not at all.
bool unreadableFile(const char* tool, const std::string& path, std::ostream& err);

// Loads the keyword table as start-up does; false, with the reason on `err`, when it is unusable.
bool loadKeywordTable(const char* tool, std::ostream& err);

}  // namespace hlyd
