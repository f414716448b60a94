#pragma once
// A command-line run that needs nothing of the window system: the HTML export alone. It runs on
// the core, so that a script that exports many files pays no start of the window system for each.
#include <string>

#include "shell/batch_options.h"

namespace hlyd {

// Whether the options ask for a run the core does alone: files to export as HTML, nothing printed
// and no window.
bool runsOnCoreAlone(const BatchOptions& options);

// The run without a window: messages go to standard error, and no printer is opened. Returns the
// process exit code.
int runOnCoreAlone(const BatchOptions& options);

}  // namespace hlyd
