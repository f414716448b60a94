#pragma once
// The folders the file dialogs start in: where the user last opened files, and where the last
// HTML document went. A dialog that starts where the user was saves a walk through the tree.
#include <string>

namespace hlyd {

// The Open dialog's folder: DefaultFileLoc when the user set one, else the folder used last,
// else the home folder; a folder that is no longer there is passed over.
std::string openDialogFolder();
// The folder of a chosen file becomes the folder of the next dialog of its kind, also in later runs.
void rememberOpenFolder(const std::string& chosenFile);
void rememberHtmlFolder(const std::string& chosenFile);
void rememberPdfFolder(const std::string& chosenFile);
// The folder of a file, without its last separator ("/" stays "/"); empty for a bare name.
std::string folderOf(const std::string& file);

}  // namespace hlyd
