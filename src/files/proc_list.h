#pragma once
// Building the procedure list while a file is read: an entry for the form definition, for the
// declarations at the head of the code, and for each procedure.
#include <cstdint>

namespace hlyd {

// Looks at the records read since `firstNewRecord` and adds the entries they start.
void scanNewRecordsForProcedures(std::int32_t firstNewRecord, std::int32_t firstNewStatement);

}  // namespace hlyd
