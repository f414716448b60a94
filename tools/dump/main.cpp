// hlyd-dump: prints what the analysis made of a file, as JSON Lines, for people and scripts.
#include <iostream>
#include <string>

#include "analysis/basiclan.h"
#include "analysis_dump.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "base/text_format.h"
#include "files_dump.h"
#include "html_dump.h"
#include "print_dump.h"
#include "platform/os.h"
#include "settings_dump.h"
#include "tool_errors.h"
#include "xref_dump.h"
#include "shell/session.h"

namespace {

int usage(const std::string& problem) {
    std::cerr << "hlyd-dump: " << problem << "\n"
              << "usage: hlyd-dump [--dialect 3|4|5|6|auto] [--summary] FILE\n"
              << "       hlyd-dump --settings\n"
              << "       hlyd-dump --procs FILE | --project FILE | --xref FILE\n"
              << "       hlyd-dump --html OUT FILE\n"
              << "       hlyd-dump --print FILE [--pages FROM-TO] [--start N] [--procs NAME,...]\n";
    return 2;
}

// The keyword file's faults have been told through the Ui; only a missing file stops the tool.
bool initKeywords() {
    try {
        hlyd::BabInit();
    } catch (const hlyd::HlydError&) {
        if (hlyd::theDebug().BabStatus == hlyd::kStatusKeywordFileMissing) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argv[0]);
    hlyd::os::useBinaryStandardStreams();
    hlyd::AnalysisDumpOptions options;
    std::string file;
    bool settings = false;
    std::string mode;
    std::string htmlOut;
    hlyd::PrintDumpOptions print;
    // With --print, --procs names the procedures to print; alone it is the mode that lists them.
    bool printing = false;
    for (int i = 1; i < argc; ++i) printing = printing || std::string(argv[i]) == "--print";
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--settings") {
            settings = true;
        } else if ((arg == "--procs" && !printing) || arg == "--project" || arg == "--xref") {
            mode = arg;
        } else if (arg == "--html") {
            if (++i >= argc) return usage("--html needs an output file");
            mode = arg;
            htmlOut = argv[i];
        } else if (arg == "--print") {
            mode = arg;
        } else if (arg == "--pages") {
            if (++i >= argc || !hlyd::parsePageRange(argv[i], print)) return usage("--pages needs FROM-TO");
        } else if (arg == "--start") {
            std::string n = ++i < argc ? argv[i] : "";
            if (n.empty() || n.size() > 9 || n.find_first_not_of("0123456789") != std::string::npos)
                return usage("--start needs a page number");
            print.startPage = std::stoi(n);
        } else if (arg == "--procs") {
            if (++i >= argc) return usage("--procs needs names");
            print.procs = hlyd::splitOn(argv[i], ',');
        } else if (arg == "--summary") {
            options.summary = true;
        } else if (arg == "--dialect") {
            if (++i >= argc) return usage("--dialect needs a value");
            options.dialect = argv[i];
            if (options.dialect != "auto" && options.dialect != "3" && options.dialect != "4" &&
                options.dialect != "5" && options.dialect != "6")
                return usage("unknown dialect " + options.dialect);
        } else if (arg.size() > 1 && arg[0] == '-') {
            return usage("unknown option " + arg);
        } else if (file.empty()) {
            file = arg;
        } else {
            return usage("only one FILE");
        }
    }
    if (settings && !file.empty()) return usage("--settings takes no FILE");
    if (!settings && file.empty()) return usage("no FILE given");
    try {
        if (settings) {
            hlyd::dumpSettings(std::cout);
            return 0;
        }
        if (!initKeywords()) {
            std::cerr << "hlyd-dump: the keyword file " << hlyd::kKeywordFileName << " is missing\n";
            return 2;
        }
        if (mode == "--procs") return hlyd::dumpProcedures(file, std::cout, std::cerr);
        if (mode == "--project") return hlyd::dumpProject(file, std::cout, std::cerr);
        if (mode == "--xref") return hlyd::dumpCrossReference(file, std::cout, std::cerr);
        if (mode == "--html") return hlyd::dumpHtml(htmlOut, file, std::cerr);
        if (mode == "--print") {
            print.file = file;
            return hlyd::dumpPrint(print, std::cout, std::cerr);
        }
        return hlyd::dumpFileAnalysis(file, options, std::cout, std::cerr);
    } catch (const hlyd::HlydError& e) {
        return hlyd::reportToolError("hlyd-dump", e, std::cerr);
    }
}
