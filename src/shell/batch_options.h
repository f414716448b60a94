#pragma once
// The options that batch use adds to the classic command line: where the listing goes, on which
// printer, and how much is said. Everything that is no option of ours stays the classic command
// line ("/init", "/idemode", the one name to print), so that its meaning does not change.
#include <string>
#include <vector>

namespace hlyd {

struct BatchOptions {
    std::string pdfOut;   // print on the PDF printer into this file
    std::string htmlOut;  // export the HTML document into this file
    std::string printer;  // print on this printer
    std::vector<std::string> openFiles;  // show these in the window (what a desktop's double-click asks)
    bool quiet = false;   // no line per file on standard error
    bool help = false;
    bool version = false;
    std::string commandLine;  // the rest, joined with blanks, as the start-mode rules read it
    std::string error;        // a misused option, in one line; empty when all is well
};

BatchOptions parseBatchOptions(const std::vector<std::string>& args);

// What --help prints.
std::string batchUsage();

}  // namespace hlyd
