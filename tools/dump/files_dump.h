#pragma once
// What the file loader and the project reader made, as JSON Lines.
#include <ostream>
#include <string>

namespace hlyd {

// Loads FILE as the program does and prints the analysis, the token elements and the
// procedure list. Returns the exit status.
int dumpProcedures(const std::string& path, std::ostream& out, std::ostream& err);

// Reads a project or group as the program does, every member taken, and prints the projects,
// their lines, the messages shown and the file table. Returns the exit status.
int dumpProject(const std::string& path, std::ostream& out, std::ostream& err);

}  // namespace hlyd
