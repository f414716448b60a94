// The analysis' part of the Session is made and renewed here, where its type is whole.
#include "analysis/analysis_state.h"

namespace hlyd {

HLYD_SESSION_PART(AnalysisState)

}  // namespace hlyd
