#pragma once
// Whether a run with a window can have one. Without a display the window system would end the
// process with an abort that tells a user at a terminal nothing; the run is refused instead, and
// the message says how to print without a window.
#include <functional>
#include <string>

namespace hlyd {

// Reads one variable of the environment; null when it is not set.
using EnvironmentReader = std::function<const char*(const char*)>;

// Empty when a window can be shown, else the lines to print on standard error.
std::string noDisplayProblem(const EnvironmentReader& environment);

// How to print without a window: what follows the window system's own words when it gives up on
// a display that is named but does not answer.
std::string noDisplayHint();

}  // namespace hlyd
