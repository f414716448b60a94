#include "tool_errors.h"

#include "analysis/basiclan.h"
#include "base/c_debug.h"

#include <ostream>

namespace hlyd {

int reportToolError(const char* tool, const HlydError& error, std::ostream& err) {
    err << tool << ": error " << error.Number << (error.Source.empty() ? "" : " in " + error.Source) << ": "
        << error.Description << '\n';
    return 1;
}

bool loadKeywordTable(const char* tool, std::ostream& err) {
    try {
        BabInit();
    } catch (const HlydError& e) {
        err << tool << ": keyword data: " << e.Description << '\n';
        return false;
    }
    return theDebug().BabStatus != kStatusKeywordFileMissing;
}

}  // namespace hlyd
