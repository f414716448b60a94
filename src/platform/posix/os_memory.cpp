// The heap in large pages on Linux with the GNU C library: the heap is grown once by a wide margin
// and that stretch is advised to the kernel as wanting transparent huge pages, so that the tables
// of a large module fault in by the two megabytes, not by the four kilobytes. Elsewhere, or where
// the kernel refuses the advice, the heap stays as it was: only the speed differs. A large page is
// cleared whole when first touched, so a run that needs little memory is better off without.
#include <cstdlib>
#include <cstring>
#include <functional>

#include "platform/os.h"
#include "platform/zeroed_blocks.h"

#if defined(__linux__) && defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#endif

namespace hlyd::os {

#if defined(__linux__) && defined(__GLIBC__) && defined(MADV_HUGEPAGE)

namespace {

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;
constexpr std::size_t kLargePage = 2 * kMegabyte;
constexpr std::size_t kChunkHeader = 2 * sizeof(std::size_t);
// Address space only: what is never touched costs no memory.
constexpr std::size_t kHeapMargin = 64 * kMegabyte;

// How far `at` lies below the next large-page boundary.
std::size_t belowNextLargePage(const char* at) {
    auto address = reinterpret_cast<std::uintptr_t>(at);
    return static_cast<std::size_t>((kLargePage - address % kLargePage) % kLargePage);
}

// Volatile: a block that is never read could otherwise be dropped with its allocation.
void* volatile heapFiller = nullptr;

// The heap grown by the margin, and its free room below the first large page boundary that lies
// past every byte written so far filled by one block that is never touched nor freed (untouched,
// it costs no memory). That room can only be faulted in small pages, since the large page around
// it is not wholly the heap's; left free, it took the first megabyte or two of a large module's
// texts (measured: 300 small faults, a twentieth of the run). The block ends below the boundary,
// and so does the header that the C library writes after it: a large page of which one byte is
// touched before the advice is mapped in small pages for good (measured: a grow by a block of
// 1 MB wrote past the boundary in half the runs, and 430 small faults followed). Returns the
// boundary, where the free room starts.
char* growHeapFilledBelowBoundary() {
    char* end = static_cast<char*>(::sbrk(0));
    char* freeStart = end - ::mallinfo2().keepcost;
    char* pastWritten = end + static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    char* boundary = pastWritten + belowNextLargePage(pastWritten);
    // Larger than the free room at the top: the heap grows by it and the margin.
    heapFiller = std::malloc(static_cast<std::size_t>(boundary - freeStart) - 2 * kChunkHeader);
    return boundary;
}

// Address space for the zeroed blocks, taken once in large-page alignment; only what is touched
// costs memory. Blocks given back are kept for the next ask of their size and cleared then. (The
// sanitized build keeps to the C library, whose blocks its checks follow.)
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kOwnZeroedBlocks = false;
#else
constexpr bool kOwnZeroedBlocks = true;
#endif
constexpr std::size_t kArenaBytes = 1024 * kMegabyte;
constexpr std::size_t kKeptBlocks = 512;

struct ZeroedArena {
    char* begin = nullptr;
    char* next = nullptr;
    char* end = nullptr;
    struct Block {
        void* at;
        std::size_t bytes;
    };
    // Plain storage: blocks are given back by tables that outlive any destructor order.
    Block kept[kKeptBlocks];
    std::size_t keptCount = 0;
};
ZeroedArena arena;
bool largePagesPreferred = false;

// The room not yet handed out, from the next large-page boundary on, is to be in large pages.
void adviseLargePagesForUnused() {
    char* from = arena.next + belowNextLargePage(arena.next);
    if (from < arena.end) ::madvise(from, static_cast<std::size_t>(arena.end - from), MADV_HUGEPAGE);
}

bool openArena() {
    void* at = ::mmap(nullptr, kArenaBytes + kLargePage, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (at == MAP_FAILED) return false;
    char* aligned = static_cast<char*>(at) + belowNextLargePage(static_cast<char*>(at));
    arena.begin = arena.next = aligned;
    arena.end = aligned + kArenaBytes;
    if (largePagesPreferred) adviseLargePagesForUnused();
    return true;
}

bool inArena(const void* block) {
    std::less_equal<const void*> notAfter;
    return arena.begin != nullptr && notAfter(arena.begin, block) && !notAfter(arena.end, block);
}

void* reuseKept(std::size_t bytes) {
    for (std::size_t i = 0; i < arena.keptCount; ++i) {
        if (arena.kept[i].bytes != bytes) continue;
        void* block = arena.kept[i].at;
        arena.kept[i] = arena.kept[--arena.keptCount];
        return std::memset(block, 0, bytes);
    }
    return nullptr;
}

void* arenaBlock(std::size_t bytes) {
    if (void* block = reuseKept(bytes)) return block;
    if (arena.begin == nullptr && !openArena()) return nullptr;
    std::size_t rounded = (bytes + 63) / 64 * 64;
    if (static_cast<std::size_t>(arena.end - arena.next) < rounded) return nullptr;
    void* block = arena.next;
    arena.next += rounded;
    return block;
}

}  // namespace

// Also in small pages: a table's chunk of a hundred kilobytes, cleared by the C library, cost a
// small file's run thirty faults where it uses a page or two of it.
void* allocateZeroed(std::size_t bytes) {
    void* block = kOwnZeroedBlocks ? arenaBlock(bytes) : nullptr;
    return block != nullptr ? block : std::calloc(1, bytes);
}

void freeZeroed(void* block, std::size_t bytes) {
    if (!inArena(block)) std::free(block);
    else if (arena.keptCount < kKeptBlocks) arena.kept[arena.keptCount++] = {block, bytes};
}

void preferLargeMemoryPages() {
    if (largePagesPreferred) return;
    largePagesPreferred = true;
    // Tables and buffers up to 32 MB come from the heap, where the advice holds, and freed memory
    // stays for the next file instead of being given back and faulted in again. (Measured: a
    // 2 MB module's run takes half the time; a small file's HTML run, asked always, 3 ms more.)
    ::mallopt(M_MMAP_THRESHOLD, static_cast<int>(32 * kMegabyte));
    ::mallopt(M_TRIM_THRESHOLD, static_cast<int>(2 * kHeapMargin));
    ::mallopt(M_TOP_PAD, static_cast<int>(kHeapMargin));
    if (arena.begin != nullptr) adviseLargePagesForUnused();
    char* begin = growHeapFilledBelowBoundary();
    char* end = static_cast<char*>(::sbrk(0));
    if (end <= begin + kLargePage) return;
    ::madvise(begin, static_cast<std::size_t>(end - begin) / kLargePage * kLargePage, MADV_HUGEPAGE);
}

#else

void preferLargeMemoryPages() {}
void* allocateZeroed(std::size_t bytes) { return std::calloc(1, bytes); }
void freeZeroed(void* block, std::size_t) { std::free(block); }

#endif

}  // namespace hlyd::os
