// Large pages on Windows need a privilege that ordinary users lack: the heap stays as it is.
#include <cstdlib>

#include "platform/os.h"
#include "platform/zeroed_blocks.h"

namespace hlyd::os {

void preferLargeMemoryPages() {}

void* allocateZeroed(std::size_t bytes) { return std::calloc(1, bytes); }
void freeZeroed(void* block, std::size_t) { std::free(block); }

}  // namespace hlyd::os
