#pragma once
// The main entry of the analysis: each call reads up to the end of the next logical line of code,
// with the comment and blank lines ahead of it, and computes indentation and comment ties.
#include <cstdint>

#include "analysis/source_file.h"
#include "analysis/source_model.h"

namespace hlyd {

void BabParseRecord(SourceFile& file, SourceTables& tables);
void OutdentMultipleNext(std::int16_t& indentLevel, const Statement& statement, const SourceTables& tables);

}  // namespace hlyd
