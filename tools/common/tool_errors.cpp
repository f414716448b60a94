#include "tool_errors.h"

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "platform/os.h"

#include <ostream>

namespace hlyd {

int reportToolError(const char* tool, const HlydError& error, std::ostream& err) {
    err << tool << ": error " << error.Number << (error.Source.empty() ? "" : " in " + error.Source) << ": "
        << error.Description << '\n';
    return 1;
}

bool unreadableFile(const char* tool, const std::string& path, std::ostream& err) {
    int problem = os::regularFileProblem(path);
    if (problem != 0) err << tool << ": cannot open " << path << ": " << os::errorText(problem) << '\n';
    return problem != 0;
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
