#pragma once
// The linked HTML site of a command-line run, into the folder that --site names.
#include <string>

namespace hlyd {

// Plans the site of the open files, refuses a folder that is a file or has no parent, and a page
// that would replace an input or a file that is not ours; then writes it. False when the run
// must stop: a refusal is told before any page is written.
bool exportSiteForCommandLine(const std::string& source);

}  // namespace hlyd
