#pragma once
// Reading the projects a user chose: groups expanded, every project read, every member checked
// the way plain files are, and the members to work on chosen.
#include <functional>
#include <string>
#include <vector>

#include "files/file_table.h"

namespace hlyd {

// `projects` holds entries of FileType 1; groups among them are found and expanded. Only once
// the members are chosen does anything change: `beforeAdding` runs, then the listing and its
// entries join the file table. A project that cannot be read, or a Cancel, leaves all as it was.
void PFParseFile(std::vector<cFileDesc> projects, const std::function<void()>& beforeAdding = {});

// Validates each name; a name that is no Visual Basic text source is emptied. `canOverride`
// lets the user keep a file that the test refuses.
void VBFileValidate(std::vector<std::string>& names, bool canOverride);

void HlydPFProcess();

}  // namespace hlyd
