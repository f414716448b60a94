#pragma once
// A table indexed from 0 to an upper bound that grows and shrinks like a preserved re-dimension,
// but never moves what it holds: storage comes in fixed chunks. A file at the token limit thus
// never needs the old and the new table at once, and growth costs no copying.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "platform/zeroed_blocks.h"

// Debug and checked builds test every index against the bounds: storage comes in whole chunks,
// so an index past the upper bound would otherwise reach memory that holds stale elements.
#if defined(HLYD_CHECKED_INDEX) || !defined(NDEBUG)
#define HLYD_VBARRAY_CHECKED 1
#else
#define HLYD_VBARRAY_CHECKED 0
#endif

namespace hlyd {

// A table element type whose blank value is all zero bytes says so by specialising this: its chunks
// then come zeroed from the allocator, which has fresh pages zeroed already, instead of being
// blanked element by element (a large module's token table is megabytes).
template <class T>
struct BlankIsZeroBytes : std::false_type {};

template <class T>
class VbArray {
public:
    static constexpr int kChunkBits = 12;
    static constexpr std::int32_t kChunkSize = 1 << kChunkBits;

    std::int32_t UBound() const { return ubound_; }

    T& operator[](std::int32_t i) {
        checkIndex(i);
        return slot(i);
    }
    const T& operator[](std::int32_t i) const {
        checkIndex(i);
        return chunks_[i >> kChunkBits][i & (kChunkSize - 1)];
    }

    bool inBounds(std::int32_t i) const { return i >= 0 && i <= ubound_; }

    // Keeps elements 0..min(old, new) bound; elements that come new are blank.
    void redimPreserve(std::int32_t newUBound) {
        std::size_t needed = newUBound < 0 ? 0 : static_cast<std::size_t>(newUBound / kChunkSize + 1);
        if (newUBound < ubound_) blankRange(newUBound + 1, lastInChunk(newUBound));
        chunks_.resize(needed);
        for (auto& chunk : chunks_)
            if (!chunk) chunk = blankChunk();
        ubound_ = newUBound;
    }

    // A fresh table whose elements above `usedUpTo` were never written since they were blank:
    // only the used part is blanked again, so that a small file after a small file costs little.
    // Chunks that are let go are not blanked first.
    void reuse(std::int32_t newUBound, std::int32_t usedUpTo) {
        std::size_t needed = newUBound < 0 ? 0 : static_cast<std::size_t>(newUBound / kChunkSize + 1);
        std::int32_t last = usedUpTo < ubound_ ? usedUpTo : ubound_;
        std::int32_t lastKept = lastInChunk(static_cast<std::int32_t>(needed) * kChunkSize - 1);
        if (last > lastKept) last = lastKept;
        for (std::int32_t i = 0; i <= last; ++i) slot(i) = T{};
        chunks_.resize(needed);
        for (auto& chunk : chunks_)
            if (!chunk) chunk = blankChunk();
        ubound_ = newUBound;
    }

    // A fresh table: all elements blank.
    void redim(std::int32_t newUBound) {
        chunks_.clear();
        ubound_ = -1;
        redimPreserve(newUBound);
    }

private:
    static constexpr bool kZeroed = BlankIsZeroBytes<T>::value;
    static constexpr std::size_t kChunkBytes = sizeof(T) * kChunkSize;
    static_assert(!kZeroed || (std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>),
                  "only a plain type can be blanked by zeroing its bytes");
    struct ChunkFree {
        void operator()(T* chunk) const {
            if constexpr (kZeroed) os::freeZeroed(chunk, kChunkBytes);
            else delete[] chunk;
        }
    };
    using Chunk = std::unique_ptr<T[], ChunkFree>;

    static Chunk blankChunk() {
        if constexpr (kZeroed) {
            void* bytes = os::allocateZeroed(kChunkBytes);
            if (!bytes) throw std::bad_alloc();
            return Chunk(static_cast<T*>(bytes));
        } else {
            return Chunk(new T[kChunkSize]());
        }
    }

    void checkIndex([[maybe_unused]] std::int32_t i) const {
#if HLYD_VBARRAY_CHECKED
        if (inBounds(i)) return;
        std::fprintf(stderr, "VbArray: index %ld outside 0 to %ld\n", static_cast<long>(i), static_cast<long>(ubound_));
        std::abort();
#endif
    }
    T& slot(std::int32_t i) { return chunks_[i >> kChunkBits][i & (kChunkSize - 1)]; }
    static std::int32_t lastInChunk(std::int32_t i) { return (i < 0 ? -1 : (i | (kChunkSize - 1))); }
    void blankRange(std::int32_t first, std::int32_t last) {
        if (first < 0) first = 0;
        for (std::int32_t i = first; i <= last && (i >> kChunkBits) < static_cast<std::int32_t>(chunks_.size()); ++i)
            slot(i) = T{};
    }

    std::vector<Chunk> chunks_;
    std::int32_t ubound_ = -1;
};

}  // namespace hlyd
