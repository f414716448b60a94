#pragma once
// The cross-reference of a file or project as JSON Lines: one line per name.
#include <ostream>
#include <string>

namespace hlyd {

// Opens FILE as a run does (a project or group with its members), indexes every member and prints
// each name with its declaration and uses. Returns the exit status.
int dumpCrossReference(const std::string& path, std::ostream& out, std::ostream& err);

}  // namespace hlyd
