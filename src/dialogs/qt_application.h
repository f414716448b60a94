#pragma once
// A run of the program with its windows. This header stays free of Qt so that the entry point
// need not see Qt.
#include <string>

namespace hlyd {

// Starts the window system, runs the start of the program with its splash and main window, then
// the event loop; returns the process exit code.
int runWindowed(int& argc, char** argv, const std::string& commandLine);

// The splash and the main window as the start and stop of a run create and end them, for a
// caller that has its application object already. The window's dialogs are placed over it when
// the Ui in force is the window layer's own.
void installWindowedRun();
void uninstallWindowedRun();
class HlydWindow;
HlydWindow* windowedMainWindow();

}  // namespace hlyd
