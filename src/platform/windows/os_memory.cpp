// Large pages on Windows need a privilege that ordinary users lack: the heap stays as it is.
#include "platform/os.h"

namespace hlyd::os {

void preferLargeMemoryPages() {}

}  // namespace hlyd::os
