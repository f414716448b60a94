#pragma once
// The window system and everything drawn with it (the window, the printers, the PDF printer) live
// in a program part of their own, loaded only by a run that needs them: the program's start then
// costs a run that exports HTML no loading of the window system's libraries.

namespace hlyd {

// The name of the entry the window part offers: int(int argc, char** argv), the whole run.
inline constexpr const char* kWindowPartEntry = "hlydWindowMain";
using WindowPartEntry = int (*)(int argc, char** argv);

// Loads the window part and hands the run over to it; returns the process exit code. A part that
// cannot be loaded is told on standard error, with every place it was looked for.
int runWindowPart(int argc, char** argv);

}  // namespace hlyd
