#pragma once
// The keyword table of all dialects, read once from BASICLAN.KEY, and the table of one dialect
// that the tokenizer searches for every word.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/char_case.h"

namespace hlyd {

struct KeyWord {
    char ClassCode = '-';
    bool ClassOverride = false;
    std::string Dialect;
    bool Indent = false;
    bool KeepLeadingComments = false;
    bool Outdent = false;
    bool ScanForVerb = false;
    std::string Word;
};

constexpr const char* kKeywordFileName = "BASICLAN.KEY";

// Reads the keyword file once and builds dialect "6". Status 1 when called again, -7 (and error
// 32000) when the file is missing, 4 with the entry number when an entry is bad, -12 when the
// file cannot be read.
void BabInit();

// Reads the keyword file at an explicit path; BabInit uses the one beside the program.
void BabInitFrom(const std::string& keywordFilePath);

void BuildKeyWordsForDialect(const std::string& dialect);
void SearchForKeyWord(std::string_view word, std::int32_t& index);
bool BabIsKeyWord(std::string_view word);

// The entry of the current dialect's table (0 is the sentinel).
const KeyWord& dialectKeyWord(std::int32_t index);

}  // namespace hlyd
