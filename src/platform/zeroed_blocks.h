#pragma once
// Blocks of memory that come with every byte zero, for tables whose blank element is all zero
// bytes. They come from fresh pages that the system has cleared already (large ones once large
// pages are preferred), so that a large module's token table is not cleared a second time and a
// small file's table costs only the pages it uses; where the system offers no such pages, they
// are the C library's cleared blocks.
#include <cstddef>

namespace hlyd::os {

// Null when there is no memory for it.
void* allocateZeroed(std::size_t bytes);
// `bytes` as it was asked for.
void freeZeroed(void* block, std::size_t bytes);

}  // namespace hlyd::os
