#pragma once
// Putting the file a run was started on into the file table: a project or group with its
// members, or one source file.
#include <string>

namespace hlyd {

// True when the name's extension is one of the project extensions of the settings.
bool isProjectName(const std::string& path);
// Adds the file (an absolute path) to the table as the Open command would.
void openFileForRun(const std::string& path);

}  // namespace hlyd
