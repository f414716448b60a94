#include "tool_errors.h"

#include <ostream>

namespace hlyd {

int reportToolError(const char* tool, const HlydError& error, std::ostream& err) {
    err << tool << ": error " << error.Number << (error.Source.empty() ? "" : " in " + error.Source) << ": "
        << error.Description << '\n';
    return 1;
}

}  // namespace hlyd
