// The chunked table: a fresh table after a large one holds only blank elements, also where it
// grows again into chunks the large one used.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "analysis/source_model.h"
#include "analysis/vb_array.h"
#include "platform/os.h"

namespace hlyd {
namespace {

TEST(VbArrayTest, ReuseAfterALargeTableLeavesEveryElementBlank) {
    constexpr std::int32_t kChunk = VbArray<std::string>::kChunkSize;
    for (std::int32_t smallBound : {-1, 10, kChunk - 1, kChunk, 2 * kChunk + 5}) {
        SCOPED_TRACE(smallBound);
        VbArray<std::string> table;
        table.redim(4 * kChunk);
        for (std::int32_t i = 0; i <= 3 * kChunk + 7; ++i)
            table[i] = "long enough to live on the heap " + std::to_string(i);
        table.reuse(smallBound, 3 * kChunk + 7);
        EXPECT_EQ(table.UBound(), smallBound);
        table.redimPreserve(4 * kChunk);
        for (std::int32_t i = 0; i <= 4 * kChunk; ++i)
            if (!table[i].empty()) FAIL() << "element " << i << " kept " << table[i];
    }
}

// The tables of a file come zeroed from the allocator instead of blanked: a blank record, statement
// and token must be nothing but zero bytes, or a fresh element would start with a stale value.
TEST(VbArrayTest, ZeroedChunksHoldBlankRecordsStatementsAndTokens) {
    static_assert(sizeof(Record) == 7 * sizeof(std::int32_t) && sizeof(Statement) == 9 * sizeof(std::int32_t));
    auto allZero = [](const void* bytes, std::size_t size) {
        const auto* p = static_cast<const unsigned char*>(bytes);
        for (std::size_t i = 0; i < size; ++i)
            if (p[i] != 0) return false;
        return true;
    };
    const Record record{};
    const Statement statement{};
    EXPECT_TRUE(allZero(&record, sizeof record));
    EXPECT_TRUE(allZero(&statement, sizeof statement));
    const Token token{};
    EXPECT_TRUE(allZero(&token, sizeof token));
    EXPECT_TRUE(token.text().data() == nullptr && token.text().empty());
    EXPECT_TRUE(token.LeadingLength == 0 && token.leadingSpace().empty());

    VbArray<Token> tokens;
    tokens.redim(2 * VbArray<Token>::kChunkSize);
    const Token& fresh = tokens[VbArray<Token>::kChunkSize + 3];
    EXPECT_TRUE(fresh.Class == TokenClass{} && fresh.Statement == 0 && !fresh.keyWordSeen() && fresh.text().empty());
}

// With large pages preferred, chunks come from pages the system cleared, and a chunk given back is
// kept for the next table: that one must be cleared again, not handed out as it was left.
TEST(VbArrayTest, AChunkGivenBackComesBlankToTheNextTable) {
    os::preferLargeMemoryPages();
    constexpr std::int32_t kBound = 3 * VbArray<Record>::kChunkSize;
    VbArray<Record> records;
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        records.redim(kBound);
        for (std::int32_t i = 0; i <= kBound; ++i)
            if (records[i].FirstT != 0) FAIL() << "record " << i << " kept " << records[i].FirstT;
        for (std::int32_t i = 0; i <= kBound; ++i) records[i].FirstT = i + 1;
    }
}

}  // namespace
}  // namespace hlyd
