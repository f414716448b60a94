// The heap's large pages on Linux with the GNU C library: a large page of which a byte is touched
// before the advice is mapped in small pages for good, so nothing past the old end of the heap may
// be written while it is grown. Checked in a fresh process (the advice is given once a process),
// with the heap's end placed where a grow by a large block used to write past the next boundary.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/os.h"
#include "test_support.h"

#if defined(__linux__) && defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <vector>

namespace hlyd {
namespace {

constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;
constexpr const char* kFreshProcess = "HLYD_LARGE_PAGES_FRESH";

std::uintptr_t heapEnd() { return reinterpret_cast<std::uintptr_t>(::sbrk(0)); }
std::uintptr_t largePageAbove(std::uintptr_t at) { return (at + kLargePage - 1) / kLargePage * kLargePage; }

void* volatile placedBlock = nullptr;  // volatile: an allocation never read may be dropped

// The free top of the heap is made to start half a megabyte below a large page boundary (by a
// block from the heap, not one mapped apart).
void placeHeapTopBelowBoundary() {
    ::mallopt(M_MMAP_THRESHOLD, 32 << 20);
    std::uintptr_t top = heapEnd() - ::mallinfo2().keepcost;
    std::uintptr_t target = largePageAbove(heapEnd() + kLargePage / 2) - kLargePage / 4;
    placedBlock = std::malloc(target - top - 2 * sizeof(std::size_t));
}

// Small pages in memory, in each large page wholly above `from` up to the heap's end: a large page
// is in memory whole or not at all.
std::string partlyTouchedLargePages(std::uintptr_t from) {
    std::string found;
    auto pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> resident(kLargePage / pageSize);
    for (std::uintptr_t at = largePageAbove(from); at + kLargePage <= heapEnd(); at += kLargePage) {
        if (::mincore(reinterpret_cast<void*>(at), kLargePage, resident.data()) != 0) continue;
        std::size_t in = 0;
        for (unsigned char page : resident) in += page & 1;
        if (in != 0 && in != resident.size())
            found += std::to_string(in) + " small pages at " + std::to_string(at) + "\n";
    }
    return found;
}

TEST(LargePagesTest, GrowingTheHeapTouchesNoLargePageAboveItsOldEnd) {
    if (std::getenv(kFreshProcess) == nullptr) {
        std::string self = os::executablePath();
        std::string output =
                test::run(std::string(kFreshProcess) + "=1 '" + self +
                          "' --gtest_filter=LargePagesTest.GrowingTheHeapTouchesNoLargePageAboveItsOldEnd 2>&1");
        EXPECT_NE(output.find("[  PASSED  ] 1 test"), std::string::npos) << output;
        return;
    }
    placeHeapTopBelowBoundary();
    std::uintptr_t oldEnd = heapEnd();
    os::preferLargeMemoryPages();
    EXPECT_GT(heapEnd(), oldEnd + kLargePage);
    EXPECT_EQ(partlyTouchedLargePages(oldEnd), "");
}

}  // namespace
}  // namespace hlyd
#endif
