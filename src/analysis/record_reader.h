#pragma once
// Reading one physical line into a Record and its Tokens, with the limits and the recovery that
// puts a marker record in place of a line that could not be read.
#include <string>

#include "analysis/source_file.h"
#include "analysis/source_model.h"

namespace hlyd {

void ReadRecordExtractTokens(SourceFile& file, SourceTables& tables, bool& inContinuedComment);

// Why the reading of a file stopped at its marker record, from the BabStatusDetail left with it:
// one of the reader's limits (a negative status), or the number of the run-time error.
std::string readingStopReason(int detail);

}  // namespace hlyd
