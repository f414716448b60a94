#pragma once
// The analysis of one file as JSON Lines: validate, records, statements, tokens, end.
#include <ostream>
#include <string>

#include "analysis/source_model.h"

namespace hlyd {

struct AnalysisDumpOptions {
    std::string dialect = "auto";  // "3".."6" or "auto"
    bool summary = false;
};

// Analyses the file and writes the lines; returns the exit status (0, or 2 when it cannot be opened).
int dumpFileAnalysis(const std::string& path, const AnalysisDumpOptions& options, std::ostream& out, std::ostream& err);

// The record, statement and token lines of the tables as they stand.
void dumpTables(const SourceTables& tables, std::ostream& out);

}  // namespace hlyd
