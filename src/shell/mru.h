#pragma once
// The recent-files list: positions 1 to 7 of section MRU, position 1 the most recent.

namespace hlyd {

void GetMRU();
void SaveMRU();

}  // namespace hlyd
