#pragma once
// Reading the projects a user chose: groups expanded, every project read, every member checked
// the way plain files are, and the members to work on chosen.
#include <string>
#include <vector>

#include "files/file_table.h"

namespace hlyd {

// `projects` holds entries of FileType 1; groups among them are found and expanded.
void PFParseFile(std::vector<cFileDesc> projects);

// Validates each name; a name that is no Visual Basic text source is emptied. `canOverride`
// lets the user keep a file that the test refuses.
void VBFileValidate(std::vector<std::string>& names, bool canOverride);

void HlydPFProcess();

}  // namespace hlyd
