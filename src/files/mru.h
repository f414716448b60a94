#pragma once
// The recent-files list: positions 1 to 7 of section MRU, position 1 the most recent.

#include <string>

namespace hlyd {

void GetMRU();
void SaveMRU();
// The File menu's captions: "&", the position, a blank and the name.
void ShowMRU();
// Moves the name to position 1; letter case does not make two entries of one file.
void UpdateMRUList(const std::string& fileName);
// A recent file that is gone cannot be opened: the user is asked whether it leaves the list (the
// entries behind it move up). True when it was gone, so that nothing is to be opened.
bool offerRemovalOfMissingRecentFile(int position);

}  // namespace hlyd
