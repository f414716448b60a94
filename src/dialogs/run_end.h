#pragma once
// The end every Qt run shares, whichever application object it started: kept in one place so that
// the order of the teardown cannot drift between the window's run and the PDF printer's.

namespace hlyd {

// Lets the printer opened at start go while the application it draws with is still there, then
// the ports the run installed; returns the process exit code for the start's return code `rc`.
int endQtRun(int rc);

}  // namespace hlyd
