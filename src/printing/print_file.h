#pragma once
// Printing one file of a request, or only a contents listing, and the padding that makes a
// document end on an even page when the paper is printed on both sides.
#include "printing/print_state.h"

namespace hlyd {

// Prints the current file (source, project or group) as one document of the run.
void HlydPRProcessCodeOrProjectFile(wPos& pos);
// Prints only the procedure table of the current file, or the project's contents.
void HlydPRProcessProcContentsRequest();
void HlydPRProcessProjectProcContentsRequest();
// Printed on both sides, a document ends on an even page: an odd one gets an empty page after it.
// With `keepPrinted` the printed page number stays.
void duplexPadding(bool keepPrinted);
// The end of a document: its last footing, then a new page (continuous) or the document's end.
void endDocument();

void HlydPRInit();

}  // namespace hlyd
