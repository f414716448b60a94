#pragma once
// The steps every print run is made of, whoever asked for it: the print command after its dialog,
// and the run without a dialog of the tools and the command line. Keeping them in one place keeps
// the two kinds of run printing the same pages.
#include <cstdint>
#include <functional>
#include <string>

#include "printing/print_run.h"

namespace hlyd {

// Whether the printer and the page in force can print a run at all; the reason goes into `result`.
bool printerReadyForRun(PrintRunResult& result);

// A new document run: contents emptied, status cleared, line numbers from their start, the job
// opened (a file printer writes to `outputPath`). False, with the reason in `result`, when the job
// could not begin: nothing is printed then.
bool beginRun(const std::string& outputPath, PrintRunResult& result);

// Loads and prints each file of the table that `wanted` accepts, in the table's order, until a
// stop. With `firstOnly` the walk ends after the first printed file. A file that cannot be read
// is noted in `result` and passed over.
void printWantedFiles(const std::function<bool(int which)>& wanted, bool firstOnly,
                      const std::function<void()>& onLoaded, PrintRunResult& result,
                      const std::function<void(const std::string& file)>& fileBegins = {});

// The end of a run: the table of contents when it is asked for and the run was not stopped, the
// last document of a continuous run, and the job closed (dropped when stopped).
void endRun(PrintRunResult& result);

// Brings back the file that was on screen when the run began.
void showFileAgain(std::int16_t shown);

}  // namespace hlyd
