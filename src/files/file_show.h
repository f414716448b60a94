#pragma once
// Showing a file of the table, and closing one or all of them.
#include <cstdint>

namespace hlyd {

void HlydFLProcessSelectedFile(std::int16_t wWhich);

// The operations the other modules reach through the application object.
struct cHLYD {
    static void CloseFile();
    static void CloseFiles();
};

// The Window menu: the open files, the latest first, at most 7.
void rebuildWindowMenu();

}  // namespace hlyd
