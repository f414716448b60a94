#pragma once
// A run that prints to the PDF printer alone, without a window: the toolkit's graphics set up for
// drawing into a file, and the program's start run as on the command line. This header stays free
// of Qt so that the print part's entry need not see Qt.
#include <string>

namespace hlyd {

// Returns the process exit code.
int runPdfPrint(int& argc, char** argv, const std::string& commandLine);

}  // namespace hlyd
