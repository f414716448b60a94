#pragma once
// Moving the emitter from column to column and from page to page.
#include <cstdint>

#include "printing/print_state.h"

namespace hlyd {

// Called at the first record of a document, at a procedure that starts a page or a column, and
// when the current column is full. Leaves LeftPos, RightPos and TopPos at the new column's.
void HlydPAPointNextColumn(wPos& pos, std::int32_t record);

}  // namespace hlyd
