#pragma once
// Turning an entry of the file table into analysed records: the whole file is read, every
// token gets its element, and the procedure list is built.
#include <cstdint>

namespace hlyd {

// BabStatus of a load whose file could not be opened: it vanished or became unreadable after it
// was listed. BabStatusDetail holds the run-time error number, fileTable().openFailure the reason.
constexpr std::int16_t kStatusFileUnreadable = 12;

// Loads the file at that position into the analysis tables. A file that cannot be opened leaves
// empty tables and kStatusFileUnreadable.
void ProcessSelectedFile(std::int16_t wWhich);

// Makes sure the tables reach that record; -1 asks for the end of the file. On return the
// record number is the last real record when the end was asked for or passed.
void sbParseRecord(std::int32_t& record);

}  // namespace hlyd
