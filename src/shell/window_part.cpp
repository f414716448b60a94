#include "shell/window_part.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "base/app_info.h"
#include "platform/os.h"
#include "platform/printer.h"
#include "shell/command_line_job.h"
#include "shell/start_mode.h"

namespace fs = std::filesystem;

namespace hlyd {

namespace {

// Beside the program (the build tree), then an installed copy's own lib/halyard, then the prefix it
// was built for: the same order in which the read-only data is found.
std::vector<std::string> partCandidates(const char* part) {
    const std::string& dir = theAppInfo().Path;
    return {(fs::path(dir) / part).string(), (fs::path(dir).parent_path() / "lib" / "halyard" / part).string(),
            (fs::path(HLYD_INSTALL_PREFIX) / "lib" / "halyard" / part).string()};
}

int runPart(const char* part, const char* entryName, const char* what, int argc, char** argv) {
    std::vector<std::string> places = partCandidates(part);
    std::string problem;
    for (const std::string& place : places) {
        if (!os::fileInfo(place).exists()) continue;
        std::string error;
        if (void* entry = os::loadProgramPart(place, entryName, error))
            return reinterpret_cast<WindowPartEntry>(entry)(argc, argv);
        problem = place + ": " + error;
        break;
    }
    std::cerr << "halyard: the " << what << " cannot be loaded";
    if (!problem.empty()) std::cerr << ": " << problem << '\n';
    else {
        std::cerr << "; it was looked for in:\n";
        for (const std::string& place : places) std::cerr << "  " << place << '\n';
    }
    return kExitFault;
}

}  // namespace

int runWindowPart(int argc, char** argv) {
    return runPart(HLYD_WINDOW_PART, kWindowPartEntry, "window part", argc, argv);
}

bool printsToPdfAlone(const BatchOptions& options) {
    if (!runPrints(options) || !options.openFiles.empty()) return false;
    bool pdfPrinter = !options.pdfOut.empty() || options.printer == kPdfPrinterName;
    return pdfPrinter && decideStartMode(kStartStandalone, options.commandLine) == kStartCommandLineFile;
}

int runPrintPart(int argc, char** argv) { return runPart(HLYD_PRINT_PART, kPrintPartEntry, "print part", argc, argv); }

}  // namespace hlyd
