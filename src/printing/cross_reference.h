#pragma once
// The printed cross-reference: after the code (and the table of contents), every name of the
// files printed with the page of its declaration and the pages of its uses.
#include <cstdint>
#include <vector>

#include "printing/cross_reference_entries.h"
#include "printing/print_state.h"

namespace hlyd {

// Loads every member once to index its names, showing each in the status, and reads the pages
// the run noted for their lines. The file loaded before is loaded again.
std::vector<XrefEntry> gatherCrossReference();

// Prints the entries as a document of their own; its pages count on from `contentsPages`, the
// pages of the table of contents before it.
void EmitCrossReference(wPos& pos, const std::vector<XrefEntry>& entries, std::int32_t contentsPages);

}  // namespace hlyd
