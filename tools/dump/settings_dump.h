#pragma once
// The settings as start-up loads them, as one JSON object of sections and keys.
#include <ostream>

namespace hlyd {

// Loads the settings exactly as start-up does (the full save of a first run included) and
// writes the object on one line.
void dumpSettings(std::ostream& out);

}  // namespace hlyd
