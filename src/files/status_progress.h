#pragma once
// Progress in the status bar while a file loads or prints; the one point where the window
// stays alive during a long load.
#include <cstdint>
#include <string>

namespace hlyd {

void StatusBarUpdate(bool parsing, std::int32_t lines);

// "##,##0": thousands grouped as the locale groups digits (read at start-up); no grouping when
// the locale has none, as the C locale.
std::string groupedNumber(std::int64_t value);

}  // namespace hlyd
