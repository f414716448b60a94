#include "shell/batch_options.h"

#include "base/text_format.h"

namespace hlyd {

namespace {

// The options that take the next word as their value.
std::string* valueSlot(BatchOptions& options, const std::string& arg) {
    if (arg == "--pdf") return &options.pdfOut;
    if (arg == "--html") return &options.htmlOut;
    if (arg == "--site") return &options.siteOut;
    if (arg == "--printer") return &options.printer;
    return nullptr;
}

bool takeFlag(BatchOptions& options, const std::string& arg) {
    if (arg == "--quiet") return options.quiet = true;
    if (arg == "--xref") return options.crossReference = true;
    if (arg == "--help") return options.help = true;
    if (arg == "--version") return options.version = true;
    return false;
}

// "/init" and "/idemode" keep the meaning they always had; any other word is a name.
bool isClassicSwitch(const std::string& arg) {
    std::string lower = lowerCaseAscii(arg);
    return lower == "/init" || lower == "/idemode";
}

void addToCommandLine(BatchOptions& options, const std::string& word) {
    if (!options.commandLine.empty()) options.commandLine += ' ';
    options.commandLine += word;
}

std::string checkCombinations(const BatchOptions& options) {
    bool wantsOutput =
            !options.pdfOut.empty() || !options.htmlOut.empty() || !options.siteOut.empty() || !options.printer.empty();
    if (!options.openFiles.empty() && (wantsOutput || !options.files.empty()))
        return "--open shows files in the window; it does not go with a file to print or an output";
    if (options.help || options.version) return {};
    if (wantsOutput && options.files.empty()) return "no file to print: name a source file, project or group";
    // A cross-reference is part of a print: an export or the window alone would drop it unseen.
    if (options.crossReference && (options.files.empty() || !runPrints(options)))
        return "--xref goes with a print: name a file to print, with --pdf or --printer if --html or --site is given";
    // One document holds one file, project or group; a pattern that matches several is told
    // once the names are known.
    if (!options.htmlOut.empty() && options.files.size() > 1)
        return "--html exports one file, project or group; " + std::to_string(options.files.size()) + " are named";
    if (!options.siteOut.empty() && options.files.size() > 1)
        return "--site shows one file, project or group; " + std::to_string(options.files.size()) + " are named";
    return {};
}

}  // namespace

BatchOptions parseBatchOptions(const std::vector<std::string>& args) {
    BatchOptions options;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        bool option = !optionsEnded && !arg.empty() && arg[0] == '-';
        if (option && arg == "--") {
            optionsEnded = true;
            continue;
        }
        if (option && takeFlag(options, arg)) continue;
        std::string opened;
        std::string* slot = !option ? nullptr : arg == "--open" ? &opened : valueSlot(options, arg);
        if (slot) {
            if (i + 1 >= args.size() || args[i + 1].empty()) {
                options.error = arg + " needs a file or printer name after it";
                return options;
            }
            *slot = args[++i];
            if (slot == &opened) options.openFiles.push_back(opened);
            continue;
        }
        // A mistyped option printed nothing and ended well, so a script never learnt of it.
        if (option) {
            options.error = "unknown option " + arg;
            return options;
        }
        if (arg.empty()) continue;
        addToCommandLine(options, arg);
        if (!optionsEnded && isClassicSwitch(arg)) continue;
        options.files.push_back(arg);
    }
    options.error = checkCombinations(options);
    return options;
}

bool runPrints(const BatchOptions& options) {
    return (options.htmlOut.empty() && options.siteOut.empty()) || !options.pdfOut.empty() || !options.printer.empty();
}

std::string batchUsageLine() {
    return "Usage: halyard [--pdf OUT.pdf] [--html OUT.html] [--site DIR] [--printer NAME] [--xref] [--quiet] [--] "
           "FILE...\n";
}

std::string batchUsage() {
    return "Usage: halyard [FILE...]\n"
           "       halyard [--pdf OUT.pdf] [--html OUT.html] [--site DIR] [--printer NAME] [--xref] [--quiet]\n"
           "               [--] FILE...\n"
           "       halyard --open FILE [--open FILE ...]\n"
           "\n"
           "Without FILE the window opens. With FILE (a source file, project or group) the listing is\n"
           "printed on the current printer without a window; the PDF printer writes <name>.pdf into the\n"
           "current directory. Several files print as one job in the order given; a name with * or ?\n"
           "stands for the files it matches, in the order of their names. The path of each file\n"
           "written is printed on standard output.\n"
           "\n"
           "  --pdf OUT.pdf    print on the PDF printer into OUT.pdf\n"
           "  --html OUT.html  export the HTML document of one FILE into OUT.html (with no --pdf or\n"
           "                   --printer, nothing is printed)\n"
           "  --site DIR       write one FILE as linked HTML pages into the folder DIR: index.html, and\n"
           "                   a page per member whose names link to their declarations; DIR is made\n"
           "                   when its parent folder exists, and pages of an earlier run are replaced.\n"
           "                   It goes with --html, --pdf and --printer: each output is written apart\n"
           "                   from the same reading, and none is printed with --site alone\n"
           "  --printer NAME   print on the printer NAME\n"
           "  --open FILE      open FILE in the window instead of printing it (what the desktop's\n"
           "                   menu entry and a double-click on a file use)\n"
           "  --xref           end the print with a cross-reference: every name, its kind, the page of\n"
           "                   its declaration and the pages of its uses (not for --html or --site alone)\n"
           "  --quiet          no line per file on standard error\n"
           "  --help           this text\n"
           "  --version        the version\n"
           "  --               the words after it are file names, even one that begins with -\n"
           "  /init            start and leave at once\n"
           "  /idemode         open the window; closing it does not end the host\n"
           "\n"
           "The window needs a display; without one, print with --pdf.\n"
           "\n"
           "Exit status: 0 when everything was written; 1 when a run-time fault stopped the job; 2 when\n"
           "a file could not be read (or no file matches a pattern, or there is no display for the\n"
           "window); 3 when an output could not be written (then nothing is left of it); 64 for an\n"
           "unknown or misused option.\n";
}

}  // namespace hlyd
