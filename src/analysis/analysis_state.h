#pragma once
// The analysis' part of the Session: the keyword tables and the per-file flags, and the tables of
// the selected file.
#include "analysis/basiclan_state.h"
#include "analysis/source_model.h"
#include "platform/session.h"

namespace hlyd {

struct AnalysisState {
    BasiclanModule basiclan;
    SourceTables tables;
};

inline AnalysisState& analysisState() { return *detail::current.analysis; }

}  // namespace hlyd
