#pragma once
// The window system and everything drawn with it (the window, the printers, the PDF printer) live
// in a program part of their own, loaded only by a run that needs them: the program's start then
// costs a run that exports HTML no loading of the window system's libraries.
//
// A run that prints only to the PDF printer, without a window, loads a smaller part of its own:
// the PDF printer drawn with the toolkit's graphics alone, without its widgets or its print
// support, so that the start of such a run is not the start of a desktop application.
#include "shell/batch_options.h"

namespace hlyd {

// The name of the entry the window part offers: int(int argc, char** argv), the whole run.
inline constexpr const char* kWindowPartEntry = "hlydWindowMain";
using WindowPartEntry = int (*)(int argc, char** argv);
// The print part's entry, of the same form.
inline constexpr const char* kPrintPartEntry = "hlydPrintMain";

// Loads the window part and hands the run over to it; returns the process exit code. A part that
// cannot be loaded is told on standard error, with every place it was looked for.
int runWindowPart(int argc, char** argv);

// Whether the options ask for a print on the PDF printer alone, with no window: the print part's run.
bool printsToPdfAlone(const BatchOptions& options);
// Loads the print part and hands the run over to it, as runWindowPart does.
int runPrintPart(int argc, char** argv);

}  // namespace hlyd
