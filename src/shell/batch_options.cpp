#include "shell/batch_options.h"

namespace hlyd {

namespace {

// The options that take the next word as their value.
std::string* valueSlot(BatchOptions& options, const std::string& arg) {
    if (arg == "--pdf") return &options.pdfOut;
    if (arg == "--html") return &options.htmlOut;
    if (arg == "--printer") return &options.printer;
    return nullptr;
}

bool takeFlag(BatchOptions& options, const std::string& arg) {
    if (arg == "--quiet") return options.quiet = true;
    if (arg == "--help") return options.help = true;
    if (arg == "--version") return options.version = true;
    return false;
}

}  // namespace

BatchOptions parseBatchOptions(const std::vector<std::string>& args) {
    BatchOptions options;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (takeFlag(options, arg)) continue;
        std::string opened;
        std::string* slot = arg == "--open" ? &opened : valueSlot(options, arg);
        if (slot) {
            if (i + 1 >= args.size() || args[i + 1].empty()) {
                options.error = arg + " needs a file or printer name after it";
                return options;
            }
            *slot = args[++i];
            if (slot == &opened) options.openFiles.push_back(opened);
            continue;
        }
        if (!options.commandLine.empty()) options.commandLine += ' ';
        options.commandLine += arg;
    }
    bool wantsOutput = !options.pdfOut.empty() || !options.htmlOut.empty() || !options.printer.empty();
    if (!options.openFiles.empty() && (wantsOutput || !options.commandLine.empty())) {
        options.error = "--open shows files in the window; it does not go with a file to print or an output";
        return options;
    }
    if (wantsOutput && options.commandLine.empty() && !options.help && !options.version)
        options.error = "no file to print: name a source file, project or group";
    return options;
}

std::string batchUsage() {
    return "Usage: halyard [FILE]\n"
           "       halyard [--pdf OUT.pdf] [--html OUT.html] [--printer NAME] [--quiet] FILE\n"
           "       halyard --open FILE [--open FILE ...]\n"
           "\n"
           "Without FILE the window opens. With FILE (a source file, project or group) the listing is\n"
           "printed on the current printer without a window; the PDF printer writes <name>.pdf into the\n"
           "current directory. The path of each file written is printed on standard output.\n"
           "\n"
           "  --pdf OUT.pdf    print on the PDF printer into OUT.pdf\n"
           "  --html OUT.html  export the HTML document into OUT.html (with no --pdf or --printer,\n"
           "                   nothing is printed)\n"
           "  --printer NAME   print on the printer NAME\n"
           "  --open FILE      open FILE in the window instead of printing it (what the desktop's\n"
           "                   menu entry and a double-click on a file use)\n"
           "  --quiet          no line per file on standard error\n"
           "  --help           this text\n"
           "  --version        the version\n"
           "  /init            start and leave at once\n"
           "  /idemode         open the window; closing it does not end the host\n"
           "\n"
           "Exit status: 0 when everything was written; 1 when a run-time fault stopped the job; 2 when\n"
           "a file could not be read; 3 when an output could not be written (then nothing is left of\n"
           "it); 64 for a misused option.\n";
}

}  // namespace hlyd
