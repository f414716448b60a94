#pragma once
// Building the procedure list while a file is read: an entry for the form definition, for the
// declarations at the head of the code, and for each procedure.
#include <cstdint>

namespace hlyd {

// Looks at the records read since `firstNewRecord` and adds the entries they start.
void scanNewRecordsForProcedures(std::int32_t firstNewRecord, std::int32_t firstNewStatement);

struct ProcEntry;

// The statement that declares the entry's procedure: an entry begins with the comments and blank
// lines tied to it, and the declaration follows them. An entry without one (the declarations, a
// form's definition) is its first statement.
std::int32_t declarationStatement(const ProcEntry& entry);

}  // namespace hlyd
