#include "analysis/basiclan_state.h"

#include "analysis/analysis_state.h"

namespace hlyd {

// The program's Session lives as long as the process, so a large module's tables (tens of
// megabytes) go with it whole instead of being freed chunk by chunk on the way out.
BasiclanModule& basiclan() { return analysisState().basiclan; }

SourceTables& theSourceTables() { return analysisState().tables; }

}  // namespace hlyd
