#pragma once
// Finding the printer: at start-up from the settings, and again whenever the user sets it up.
#include <string>

namespace hlyd {

// The name of the system's default printer; empty, after telling the user, when there is none.
std::string GetDefaultPrinter();

// The printer step of start-up: opens the printer the settings name (or the default one), and
// when it can print, checks its fonts, measures them and lays out the page. Nothing here ends the
// run: a printer that will not do switches printing off.
void InitPrinter();

// Applies a printer setup, after the printer dialog when `showDialog` is set: the printer, its
// job properties, its fonts and the page.
void HlydPAProcessSetupRequest(bool showDialog);

}  // namespace hlyd
