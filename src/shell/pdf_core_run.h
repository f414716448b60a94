#pragma once
// A print to the PDF printer alone, run on the core: when every face the print needs was found
// by an earlier one (face-files), the run reads them from their files and needs nothing of the
// toolkit, so that a short print starts as quickly as an HTML export. Otherwise the print part
// does the whole run, as it always did, and remembers what it finds for the next.
#include <optional>

#include "shell/batch_options.h"

namespace hlyd {

// The process exit code; nothing when the run is the print part's to do (from the start: any
// message of this attempt is held back and dropped, its file never written).
std::optional<int> runPdfOnCore(const BatchOptions& options);

}  // namespace hlyd
