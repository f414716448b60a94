#include "platform/qt/classic_paper.h"

namespace hlyd {

namespace {

struct PaperCode {
    std::int32_t code;
    QPageSize::PageSizeId id;
};

const PaperCode kPapers[] = {
        {1, QPageSize::Letter},    {3, QPageSize::Tabloid},     {4, QPageSize::Ledger}, {5, QPageSize::Legal},
        {7, QPageSize::Executive}, {8, QPageSize::A3},          {9, QPageSize::A4},     {11, QPageSize::A5},
        {13, QPageSize::B5},       {20, QPageSize::Envelope10},
};

}  // namespace

std::optional<QPageSize::PageSizeId> classicPaper(std::int32_t code) {
    for (const PaperCode& p : kPapers)
        if (p.code == code) return p.id;
    return std::nullopt;
}

std::vector<std::int32_t> classicPaperCodes() {
    std::vector<std::int32_t> codes;
    for (const PaperCode& p : kPapers) codes.push_back(p.code);
    return codes;
}

std::int32_t classicPaperCode(QPageSize::PageSizeId id) {
    for (const PaperCode& p : kPapers)
        if (p.id == id) return p.code;
    return 1;
}

}  // namespace hlyd
