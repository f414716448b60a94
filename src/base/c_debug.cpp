#include "base/c_debug.h"

#include "base/base_state.h"
#include "base/c_log.h"

namespace hlyd {

cDebug& theDebug() { return baseState().debug; }

void cDebug::SetLogAll() {
    TraceApplication = TracePackages = TraceEvents = TraceMouseMove = TraceOther = true;
    theLog().LogData("Logging enabled");
}

void cDebug::UnsetLogAll() {
    TraceApplication = TracePackages = TraceEvents = TraceMouseMove = TraceOther = false;
    theLog().LogData("Logging disabled");
}

}  // namespace hlyd
