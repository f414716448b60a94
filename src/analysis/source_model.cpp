#include "analysis/source_model.h"

#include "analysis/basiclan_state.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"

namespace hlyd {

namespace {

void requireInit(const char* proc) {
    if (basiclan().BabInitDone) return;
    theDebug().setStatus(kStatusNotInitialised, 0);
    raiseInternal(proc);
}

template <class T>
void blankRange(VbArray<T>& table, std::int32_t first, std::int32_t last, const char* proc) {
    requireInit(proc);
    if (first < 0 || first > last || last > table.UBound()) {
        theDebug().setStatus(kStatusBadArgument, kDetailOutsideBounds);
        raiseInternal(proc);
    }
    for (std::int32_t i = first; i <= last; ++i) table[i] = T{};
}

}  // namespace

void BabInitRecord(Record& record) {
    requireInit("BabInitRecord");
    record = Record{};
}

void BabInitToken(Token& token) {
    requireInit("BabInitToken");
    token = Token{};
}

void BabInitRecords(VbArray<Record>& records, std::int32_t first, std::int32_t last) {
    blankRange(records, first, last, "BabInitRecords");
}

void BabInitStatements(VbArray<Statement>& statements, std::int32_t first, std::int32_t last) {
    blankRange(statements, first, last, "BabInitStatements");
}

void BabInitTokens(VbArray<Token>& tokens, std::int32_t first, std::int32_t last) {
    blankRange(tokens, first, last, "BabInitTokens");
}

void BabInitFile(SourceTables& t, const std::string& dialect) {
    TraceScope trace(theDebug().TracePackages, "BabInitFile");
    requireInit("BabInitFile");
    BuildKeyWordsForDialect(dialect);
    BasiclanModule& m = basiclan();
    // Nothing beyond the counts (and the sentinel record) is ever written, so only that is blanked.
    m.RecordsUBound = kRecordsStep;
    t.Records.reuse(m.RecordsUBound, t.RecordCount + 1);
    t.RecordCount = 0;
    m.StatementsUBound = kStatementsStep;
    t.Statements.reuse(m.StatementsUBound, t.StatementCount);
    t.StatementCount = 0;
    m.TokensUBound = kTokensStep;
    t.Tokens.reuse(m.TokensUBound, t.TokenCount);
    t.TokenCount = 0;
    t.Texts = std::make_shared<RecordTexts>();
    t.TokenTexts.clear();
    m.InClassHeader = m.InEnum = m.InFormHeader = m.InProc = m.InType = false;
}

}  // namespace hlyd
