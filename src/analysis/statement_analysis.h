#pragma once
// Making one Statement out of the tokens of a logical line: its end, verb, class, detail and the
// flags that drive indentation.
#include <cstdint>

#include "analysis/source_model.h"

namespace hlyd {

void AnalyzeStatement(SourceTables& tables, std::int32_t& nextToken, std::int32_t lastToken);

// Procedure and label scanning.
void FindStartOfProc(std::int32_t first, SourceTables& tables, std::int32_t procRecord);
void ScanForLabelReferences(std::int32_t pKeyWord, const Statement& statement, SourceTables& tables);

}  // namespace hlyd
