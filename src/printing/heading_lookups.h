#pragma once
// What the heading macros look up: the current file and its project, the procedure a record
// lies in, and the user's answer for a routine.
#include <cstdint>
#include <string>

#include "files/file_table.h"

namespace hlyd {

// The file that is being printed; error 9 when the file table has no current file.
const cFileDesc& headingCurrentFile();

// The name of the procedure that holds the record: the last one that starts at or before it,
// else the table's first entry.
std::string procedureNameAt(std::int32_t record);

// The name of the project the current file belongs to, without its directory; empty when none.
std::string currentProjectName();

// The description the user gives for the routine; empty when the box is cancelled.
std::string askRoutineDescription(const std::string& procedure);

// The moment the current file was last saved; the file's absence is a run-time fault.
std::int64_t currentFileSavedAt();

}  // namespace hlyd
