#include "files/file_table.h"

#include "files/files_state.h"

namespace hlyd {

FileTableModule& fileTable() { return filesState().fileTable; }
void resetFileTable() { renewInPlace(fileTable()); }

}  // namespace hlyd
