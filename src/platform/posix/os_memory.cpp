// The heap in large pages on Linux with the GNU C library: the heap is grown once by a wide margin
// and that stretch is advised to the kernel as wanting transparent huge pages, so that the tables
// of a large module fault in by the two megabytes, not by the four kilobytes. Elsewhere, or where
// the kernel refuses the advice, the heap stays as it was: only the speed differs. A large page is
// cleared whole when first touched, so a run that needs little memory is better off without.
#include "platform/os.h"

#if defined(__linux__) && defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#endif

namespace hlyd::os {

#if defined(__linux__) && defined(__GLIBC__) && defined(MADV_HUGEPAGE)

namespace {

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;
constexpr std::size_t kLargePage = 2 * kMegabyte;
// Address space only: what is never touched costs no memory.
constexpr std::size_t kHeapMargin = 64 * kMegabyte;

std::uintptr_t roundUp(std::uintptr_t address, std::size_t step) { return (address + step - 1) / step * step; }

}  // namespace

void preferLargeMemoryPages() {
    static bool done = false;
    if (done) return;
    done = true;
    // Tables and buffers up to 32 MB come from the heap, where the advice holds, and freed memory
    // stays for the next file instead of being given back and faulted in again. (Measured: a
    // small file's run costs about a millisecond more, a 2 MB module's run half as much.)
    ::mallopt(M_MMAP_THRESHOLD, static_cast<int>(32 * kMegabyte));
    ::mallopt(M_TRIM_THRESHOLD, static_cast<int>(2 * kHeapMargin));
    ::mallopt(M_TOP_PAD, static_cast<int>(kHeapMargin));
    auto first = reinterpret_cast<std::uintptr_t>(::sbrk(0));
    // One allocation grows the heap by the margin; freed, it leaves that stretch as free room.
    // Volatile, or the compiler drops the pair as having no effect.
    void* volatile grow = std::malloc(kMegabyte);
    std::free(grow);
    auto end = reinterpret_cast<std::uintptr_t>(::sbrk(0));
    std::uintptr_t begin = roundUp(first, kLargePage);
    if (end > begin + kLargePage)
        ::madvise(reinterpret_cast<void*>(begin), (end - begin) / kLargePage * kLargePage, MADV_HUGEPAGE);
}

#else

void preferLargeMemoryPages() {}

#endif

}  // namespace hlyd::os
