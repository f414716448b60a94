// The comments that belong to a procedure, and the tokens that name a jump target.
#include <string>

#include "analysis/basiclan_state.h"
#include "analysis/statement_analysis.h"

namespace hlyd {

namespace {

bool firstStatementIsBlank(const SourceTables& t, std::int32_t record) {
    return t.Statements[t.Records[record].FirstS].Class == StatementClass::Blank;
}

class LabelMarker {
public:
    LabelMarker(SourceTables& t, const Statement& s) : t_(t), v_(s.Verb), last_(s.LastSignificant) {}

    void afterVerb(std::int32_t offset) { mark(v_ + offset); }
    void resume();
    void on();
    void singleLineIf();

private:
    bool wordIs(std::int32_t i, const char* upperWord) const {
        return i >= 1 && i <= t_.TokenCount && equalsUpper(t_.Tokens[i].text(), upperWord);
    }
    void mark(std::int32_t i) {
        if (i < 1 || i > t_.TokenCount) return;
        t_.Tokens[i].set(CommentishDetail::LabelRef);
    }
    std::int32_t find(const char* upperWord, std::int32_t from) const {
        for (std::int32_t i = from; i <= last_; ++i)
            if (wordIs(i, upperWord)) return i;
        return 0;
    }
    void branch(std::int32_t b);

    SourceTables& t_;
    std::int32_t v_;
    std::int32_t last_;
};

void LabelMarker::resume() {
    std::int32_t target = v_ + 1;
    if (target <= t_.Tokens.UBound() && target <= last_ && !wordIs(target, "NEXT")) mark(target);
}

void LabelMarker::on() {
    if (wordIs(v_ + 1, "ERROR") && wordIs(v_ + 2, "GOTO")) {
        mark(v_ + 3);
        return;
    }
    std::int32_t jump = 0;
    for (std::int32_t i = v_ + 1; i <= last_ && jump == 0; ++i)
        if (wordIs(i, "GOTO") || wordIs(i, "GOSUB")) jump = i;
    if (jump == 0) return;
    for (std::int32_t i = jump + 1; i <= last_; ++i)
        if (t_.Tokens[i].text() != ",") mark(i);
}

// Only a line number is sure to be a target after Then or Else; a name there may be a call.
void LabelMarker::branch(std::int32_t b) {
    if (wordIs(b, "GOTO")) ++b;
    if (b <= t_.TokenCount && t_.Tokens[b].is(LiteralDetail::Number)) mark(b);
}

void LabelMarker::singleLineIf() {
    if (wordIs(last_, "THEN")) return;
    std::int32_t thenAt = find("THEN", v_ + 1);
    if (thenAt == 0 || thenAt >= last_) return;
    branch(thenAt + 1);
    std::int32_t elseAt = find("ELSE", thenAt + 2);
    if (elseAt != 0 && elseAt < last_) branch(elseAt + 1);
}

}  // namespace

void FindStartOfProc(std::int32_t first, SourceTables& t, std::int32_t procRecord) {
    std::int32_t startOfProc = first;
    if (first == procRecord) {
        startOfProc = procRecord;
    } else {
        for (std::int32_t r = first; r <= procRecord - 1; ++r)
            if (firstStatementIsBlank(t, r)) {
                startOfProc = r;
                break;
            }
    }
    t.Statements[t.Records[startOfProc].FirstS].Flags.set(StatementFlag::ProcListingStart);
    for (std::int32_t r = startOfProc; r <= procRecord - 1; ++r) t.Records[r].TiedTo = procRecord;
}

void ScanForLabelReferences(std::int32_t pKeyWord, const Statement& s, SourceTables& t) {
    const std::string& w = dialectKeyWord(pKeyWord).Word;
    LabelMarker marker(t, s);
    if (w == "GOSUB" || w == "GOTO") marker.afterVerb(1);
    else if (w == "RESUME") marker.resume();
    else if (w == "ON") marker.on();
    else if (w == "IF") marker.singleLineIf();
}

}  // namespace hlyd
