#pragma once
// From the wish to open something to entries in the file table: the Open dialog, the sorting
// of the names into projects and source files, and the rules on mixing them.
#include <cstdint>
#include <string>
#include <vector>

namespace hlyd {

// `which` 0 or less asks the user; above 0 it is a position in the recent-files list.
void GetFilesToProcess(std::int16_t which);
// The files named, opened as if the user had chosen them in the Open dialog.
void openChosenFiles(std::vector<std::string> names);
void GetListFromCommonDialog(std::vector<std::string>& names);
// "P" projects, "R" resources, "F" forms, anything else code.
bool fblnValidFileExtension(const std::string& fileName, const std::string& kind);
void FindNameInList(const std::string& fileName, std::int16_t& which);
void ParseLine(const std::string& text, char delimiter, std::vector<std::string>& parts);
// The filter of the Open dialog, from the extension settings.
std::string openDialogFilter();
// The list of open files (frmFileList); the chosen position from 1, or 0 on cancel.
int frmFileList();

}  // namespace hlyd
