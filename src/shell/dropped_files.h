#pragma once
// Files dropped on the main window: those the Open dialog would offer (source, project and group
// files by the extensions of the settings) are opened as Open opens them; the rest are refused
// with a word in the status bar.
#include <string>
#include <vector>

namespace hlyd {

// True for a name whose extension is one of the settings' source, form, project or group
// extensions, in any letter case.
bool opensWhenDropped(const std::string& path);

// Opens the files that open when dropped and shows the first; names the others in the status.
void openDroppedFiles(const std::vector<std::string>& paths);

}  // namespace hlyd
