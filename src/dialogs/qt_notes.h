#pragma once
// A run without a window speaks to a script or a user at a terminal: Qt's notes on the desktop
// (no runtime directory, a font substituted) would bury the one line that matters. From this call
// on, only Qt's failures reach standard error.
namespace hlyd {

void keepOnlyQtFailures();

}  // namespace hlyd
