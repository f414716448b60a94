#pragma once
// The state of the analysis module that lives between calls: keyword tables, table bounds and the
// per-file flags. One in each Session.
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/keyword_index.h"
#include "analysis/keywords.h"
#include "analysis/source_model.h"
#include "analysis/work_tokens.h"

namespace hlyd {

constexpr std::int32_t kRecordsStep = 3000;
constexpr std::int32_t kStatementsStep = 3000;
constexpr std::int32_t kTokensStep = 10000;
constexpr std::int32_t kTokensLimit = 500000;
constexpr std::int32_t kGrowthMargin = 250;
constexpr std::int32_t kMaxRecordLength = 2048;
constexpr std::int32_t kWorkTokensUBound = 2000;

struct BasiclanModule {
    // Keyword tables.
    std::vector<KeyWord> KeyWords;  // index 0 is the sentinel
    std::int32_t KeyWordTotal = 0;
    std::vector<KeyWord> DialectKeyWords;  // index 0 is the sentinel
    std::int32_t DialectKeyWordCount = 0;
    KeyWordIndex DialectIndex;  // finds the words of DialectKeyWords
    std::string CurrentDialect;
    std::int32_t LetKeyWord = 0;
    bool BabInitDone = false;

    // Table bounds.
    std::int32_t RecordsUBound = 0;
    std::int32_t StatementsUBound = 0;
    std::int32_t TokensUBound = 0;

    // Per-file state.
    std::int16_t IndentLevel = 0;
    std::int16_t SavedIndent = 0;
    bool RestoreIndent = false;
    bool InHashIf = false;
    bool InClassHeader = false;
    bool InFormHeader = false;
    bool InEnum = false;
    bool InType = false;
    bool InProc = false;
    std::int32_t RecordIndex = 0;

    // The tokens of the one line being cut.
    WorkTokenArray WorkTokens{kWorkTokensUBound};
};

BasiclanModule& basiclan();

}  // namespace hlyd
