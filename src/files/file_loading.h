#pragma once
// Turning an entry of the file table into analysed records: the whole file is read, every
// token gets its element, and the procedure list is built.
#include <cstdint>

namespace hlyd {

// Loads the file at that position into the analysis tables.
void ProcessSelectedFile(std::int16_t wWhich);

// Makes sure the tables reach that record; -1 asks for the end of the file. On return the
// record number is the last real record when the end was asked for or passed.
void sbParseRecord(std::int32_t& record);

}  // namespace hlyd
