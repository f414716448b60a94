#pragma once
// Reading one physical line into a Record and its Tokens, with the limits and the recovery that
// puts a marker record in place of a line that could not be read.
#include "analysis/source_file.h"
#include "analysis/source_model.h"

namespace hlyd {

void ReadRecordExtractTokens(SourceFile& file, SourceTables& tables, bool& inContinuedComment);

}  // namespace hlyd
