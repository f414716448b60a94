#pragma once
// Export without a window: the HTML document of a source file, a project or a group.
#include <ostream>
#include <string>

namespace hlyd {

// Writes the document of FILE to OUT, with the settings in force, the save dialog answered with
// OUT. A project or group is listed with all its members taken. Returns the exit status.
int dumpHtml(const std::string& outPath, const std::string& path, std::ostream& err);

}  // namespace hlyd
