#include "analysis/token_texts.h"

namespace hlyd {

void TokenTextStore::addChunk(std::size_t atLeast) {
    // A text longer than a chunk (a line is at most a few kilobytes) gets one of its own size; the
    // room left in the chunk before is given up, which costs little next to the chunk.
    std::size_t bytes = atLeast > kChunkBytes ? atLeast : kChunkBytes;
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(bytes));
    next_ = chunks_.back().get();
    room_ = bytes;
}

void TokenTextStore::clear() {
    chunks_.clear();
    next_ = nullptr;
    room_ = 0;
}

}  // namespace hlyd
