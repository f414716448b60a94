#pragma once
// The options that batch use adds to the classic command line: where the listing goes, on which
// printer, and how much is said. "/init" and "/idemode" keep their classic meaning; the other
// words are the files to print, in their order. A word that begins with "-" and is no option of
// ours is refused: a typing slip must not pass for a file name.
#include <string>
#include <vector>

namespace hlyd {

struct BatchOptions {
    std::string pdfOut;                  // print on the PDF printer into this file
    std::string htmlOut;                 // export the HTML document into this file
    std::string siteOut;                 // write the linked HTML site into this folder
    std::string printer;                 // print on this printer
    std::vector<std::string> openFiles;  // show these in the window (what a desktop's double-click asks)
    bool quiet = false;                  // no line per file on standard error
    bool crossReference = false;         // the print ends with the cross-reference of names
    bool help = false;
    bool version = false;
    std::vector<std::string> files;  // the files to print, as given (patterns not yet expanded)
    std::string commandLine;  // the classic switches and the files, joined with blanks, as the start-mode rules read it
    std::string error;        // a misused option, in one line; empty when all is well
};

BatchOptions parseBatchOptions(const std::vector<std::string>& args);

// Whether the run prints: a run with --html alone only exports, and needs no printer at all.
bool runPrints(const BatchOptions& options);

// What --help prints, and its first line for a misused option.
std::string batchUsage();
std::string batchUsageLine();

}  // namespace hlyd
