#include "base/c_debug.h"

#include "base/c_log.h"

namespace hlyd {

namespace {
cDebug debugObject;
}

cDebug& theDebug() { return debugObject; }
void resetDebug() { debugObject = cDebug{}; }

void cDebug::SetLogAll() {
    TraceApplication = TracePackages = TraceEvents = TraceMouseMove = TraceOther = true;
    theLog().LogData("Logging enabled");
}

void cDebug::UnsetLogAll() {
    TraceApplication = TracePackages = TraceEvents = TraceMouseMove = TraceOther = false;
    theLog().LogData("Logging disabled");
}

}  // namespace hlyd
