// The chunked table: a fresh table after a large one holds only blank elements, also where it
// grows again into chunks the large one used.
#include <gtest/gtest.h>

#include <string>

#include "analysis/vb_array.h"

namespace hlyd {
namespace {

TEST(VbArrayTest, ReuseAfterALargeTableLeavesEveryElementBlank) {
    constexpr std::int32_t kChunk = VbArray<std::string>::kChunkSize;
    for (std::int32_t smallBound : {-1, 10, kChunk - 1, kChunk, 2 * kChunk + 5}) {
        SCOPED_TRACE(smallBound);
        VbArray<std::string> table;
        table.redim(4 * kChunk);
        for (std::int32_t i = 0; i <= 3 * kChunk + 7; ++i) table[i] = "long enough to live on the heap " + std::to_string(i);
        table.reuse(smallBound, 3 * kChunk + 7);
        EXPECT_EQ(table.UBound(), smallBound);
        table.redimPreserve(4 * kChunk);
        for (std::int32_t i = 0; i <= 4 * kChunk; ++i)
            if (!table[i].empty()) FAIL() << "element " << i << " kept " << table[i];
    }
}

}  // namespace
}  // namespace hlyd
