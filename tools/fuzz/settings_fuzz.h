#pragma once
// Settings files that push the printing to its edges: page, font and heading keys with values a
// user can type into the file, with the table of contents and the procedure tables on.
#include <string>

namespace hlyd::fuzz {

// The whole file for SEED, the same for the same seed. The printer in force is `printer`.
std::string fuzzedSettings(unsigned seed, const std::string& printer);

}  // namespace hlyd::fuzz
