#include "shell/window_part.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "base/app_info.h"
#include "platform/os.h"
#include "shell/command_line_job.h"

namespace fs = std::filesystem;

namespace hlyd {

namespace {

// Beside the program (the build tree), then an installed copy's own lib/halyard, then the prefix it
// was built for: the same order in which the read-only data is found.
std::vector<std::string> windowPartCandidates() {
    const std::string& dir = theAppInfo().Path;
    return {(fs::path(dir) / HLYD_WINDOW_PART).string(),
            (fs::path(dir).parent_path() / "lib" / "halyard" / HLYD_WINDOW_PART).string(),
            (fs::path(HLYD_INSTALL_PREFIX) / "lib" / "halyard" / HLYD_WINDOW_PART).string()};
}

}  // namespace

int runWindowPart(int argc, char** argv) {
    std::vector<std::string> places = windowPartCandidates();
    std::string problem;
    for (const std::string& place : places) {
        if (!os::fileInfo(place).exists()) continue;
        std::string error;
        if (void* entry = os::loadProgramPart(place, kWindowPartEntry, error))
            return reinterpret_cast<WindowPartEntry>(entry)(argc, argv);
        problem = place + ": " + error;
        break;
    }
    std::cerr << "halyard: the window part cannot be loaded";
    if (!problem.empty()) std::cerr << ": " << problem << '\n';
    else {
        std::cerr << "; it was looked for in:\n";
        for (const std::string& place : places) std::cerr << "  " << place << '\n';
    }
    return kExitFault;
}

}  // namespace hlyd
