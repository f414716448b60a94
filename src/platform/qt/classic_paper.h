#pragma once
// Paper and duplex as the settings hold them: the numbers of the classic desktop's printer
// drivers (1 Letter, 5 Legal, 9 A4, ...; duplex 1 one side, 2 long edge, 3 short edge).
#include <QPageSize>
#include <cstdint>
#include <optional>
#include <vector>

namespace hlyd {

// The page size of a classic paper code; a code we do not know gives nothing.
std::optional<QPageSize::PageSizeId> classicPaper(std::int32_t code);
// Every paper code we know a size for, in the order a list shows them.
std::vector<std::int32_t> classicPaperCodes();
// The classic code of a page size; Letter's for a size with none.
std::int32_t classicPaperCode(QPageSize::PageSizeId id);

}  // namespace hlyd
