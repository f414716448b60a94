#include "analysis/record_parser.h"

#include "analysis/basiclan_state.h"
#include "analysis/record_reader.h"
#include "analysis/statement_analysis.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "platform/ui.h"

namespace hlyd {

namespace {

void reportInternalFault(const char* proc, const char* text) {
    std::string message = std::string(text) + "\nMore information follows...";
    logBlock(message);
    if (!theDebug().DontFixDataErrors) return;
    theUi().messageBox({message, std::string(proc) + " -- Internal Error", MsgButtons::OK, MsgIcon::Warning, 1});
    theDebug().BabStatus = kStatusInternalFault;
}

// The Record that was read last; when that was the end of the file, the one before the sentinel.
std::int32_t lastReadRecord(SourceFile& file, const SourceTables& t) {
    return file.atEnd() && t.RecordCount > 1 ? t.RecordCount - 1 : t.RecordCount;
}

class LogicalLineParser {
public:
    LogicalLineParser(SourceFile& file, SourceTables& t) : file_(file), t_(t), m_(basiclan()) {}
    void parse();

private:
    bool leadingComments();
    bool continuationLines();
    void analyzeCodeLine();
    void refineFirstStatements();
    bool conditionalCompilation();
    void setIndents(bool hashLine);
    void outdent();
    void tieComments();
    void indent(bool hashLine);
    bool failed() const { return theDebug().BabStatus == kStatusReadingStopped; }
    StatementFlags flagsOf(std::int32_t statement) const {
        return statement == firstStatement_ ? lead_.Flags : t_.Statements[statement].Flags;
    }

    SourceFile& file_;
    SourceTables& t_;
    BasiclanModule& m_;
    bool inContinuedComment_ = false;
    std::int32_t firstRecord_ = 0;
    std::int32_t codeRecord_ = 0;
    std::int32_t lastCodeRecord_ = 0;
    std::int32_t firstStatement_ = 0;
    Statement lead_;
};

void LogicalLineParser::parse() {
    firstRecord_ = t_.RecordCount + 1;
    if (firstRecord_ == 1) {
        m_.IndentLevel = 0;
        m_.InClassHeader = m_.InFormHeader = false;
        // A file that ended just after "#End If" must not hand its level on to the next file.
        m_.SavedIndent = 0;
        m_.RestoreIndent = m_.InHashIf = false;
    }
    if (!leadingComments()) return;
    codeRecord_ = lastCodeRecord_ = lastReadRecord(file_, t_);
    firstStatement_ = t_.StatementCount + 1;
    if (!continuationLines()) return;
    analyzeCodeLine();
    for (std::int32_t r = codeRecord_; r <= t_.RecordCount; ++r) {
        t_.Records[r].FirstS = firstStatement_;
        t_.Records[r].LastS = t_.StatementCount;
    }
    refineFirstStatements();
    Statement& stored = t_.Statements[firstStatement_];
    stored.FirstRecord = codeRecord_;
    stored.LastRecord = lastCodeRecord_;
    lead_ = stored;
    if (m_.RestoreIndent) {
        m_.IndentLevel = m_.SavedIndent;
        m_.InHashIf = m_.RestoreIndent = false;
    }
    bool hashLine = conditionalCompilation();
    setIndents(hashLine);
    if (lead_.Flags.has(StatementFlag::Outdent)) outdent();
    setIndents(hashLine);
    tieComments();
    indent(hashLine);
}

// Comment and blank lines ahead of the code; false when reading failed.
bool LogicalLineParser::leadingComments() {
    for (;;) {
        ReadRecordExtractTokens(file_, t_, inContinuedComment_);
        if (failed()) return false;
        std::int32_t r = lastReadRecord(file_, t_);
        const Token& first = t_.Tokens[t_.Records[r].FirstT];
        if (!first.is(CommentishDetail::Comment) && !first.is(CommentishDetail::Empty)) return true;
        std::int32_t commentStatement = t_.StatementCount;
        if (inContinuedComment_) {
            inContinuedComment_ = false;
            // The line joins the comment's range; like a comment continued behind code, its token
            // keeps no statement number of its own.
            t_.Statements[t_.StatementCount].LastToken = t_.Records[r].FirstT;
        } else {
            commentStatement = t_.StatementCount + 1;
            std::int32_t next = t_.Records[r].FirstT;
            while (next <= t_.Records[r].LastT) {
                AnalyzeStatement(t_, next, t_.Records[r].LastT);
                t_.Statements[t_.StatementCount].FirstRecord = r;
            }
        }
        t_.Statements[t_.StatementCount].LastRecord = r;
        t_.Records[r].FirstS = commentStatement;
        t_.Records[r].LastS = t_.StatementCount;
        t_.Records[r].Indent = m_.IndentLevel;
        if (first.is(CommentishDetail::Comment) && first.Continued == 1) inContinuedComment_ = true;
        if (file_.atEnd()) return true;
    }
}

bool LogicalLineParser::continuationLines() {
    while (!file_.atEnd() && (t_.Tokens[t_.TokenCount].Continued & 1)) {
        ReadRecordExtractTokens(file_, t_, inContinuedComment_);
        if (failed()) return false;
        lastCodeRecord_ = lastReadRecord(file_, t_);
    }
    return true;
}

void LogicalLineParser::analyzeCodeLine() {
    std::int32_t next = t_.Records[codeRecord_].FirstT;
    while (next <= t_.TokenCount) AnalyzeStatement(t_, next, t_.TokenCount);
    if (t_.StatementCount > m_.StatementsUBound - kGrowthMargin) {
        m_.StatementsUBound += kStatementsStep;
        t_.Statements.redimPreserve(m_.StatementsUBound);
    }
}

// A continuation Record names the first Statement that begins inside it, or the one it continues.
void LogicalLineParser::refineFirstStatements() {
    for (std::int32_t r = codeRecord_ + 1; r <= t_.RecordCount; ++r) {
        Record& record = t_.Records[r];
        const Record& before = t_.Records[r - 1];
        std::int32_t from = record.FirstS;
        for (std::int32_t s = from; s <= t_.StatementCount; ++s) {
            std::int32_t firstToken = t_.Statements[s].FirstToken;
            if (firstToken > record.FirstT) {
                record.FirstS = firstToken <= record.LastT ? s : before.FirstS;
                break;
            }
            if (before.LastT >= 1 && t_.Tokens[before.LastT].Continued == 1) record.FirstS = before.FirstS;
        }
    }
}

bool LogicalLineParser::conditionalCompilation() {
    if (t_.Tokens[t_.Records[codeRecord_].FirstT].text() != "#" || lead_.Verb == 0) return false;
    std::string_view verb = t_.Tokens[lead_.Verb].text();
    if (verb == "If") {
        m_.InHashIf = true;
    } else if (verb == "ElseIf" || verb == "Else") {
        m_.IndentLevel = 0;
    } else if (verb == "End") {
        m_.SavedIndent = m_.IndentLevel;
        m_.IndentLevel = 0;
        m_.RestoreIndent = true;
    } else {
        return false;
    }
    t_.Statements[firstStatement_].Flags = StatementFlags{};
    return true;
}

void LogicalLineParser::setIndents(bool hashLine) {
    for (std::int32_t r = firstRecord_; r <= t_.RecordCount; ++r) t_.Records[r].Indent = hashLine ? 0 : m_.IndentLevel;
}

void LogicalLineParser::outdent() {
    --m_.IndentLevel;
    if (m_.IndentLevel < 1) m_.InFormHeader = m_.InClassHeader = false;
    if (lead_.Verb != 0 && equalsUpper(t_.Tokens[lead_.Verb].text(), "NEXT"))
        OutdentMultipleNext(m_.IndentLevel, lead_, t_);
    if (m_.IndentLevel < 0) {
        reportInternalFault("BabParseRecord", "Indent-level < 0.");
        m_.IndentLevel = 0;
    }
}

// Only the comments directly above the code belong to it; a blank line ends them.
void LogicalLineParser::tieComments() {
    if (lead_.Class == StatementClass::ProcStart) {
        FindStartOfProc(firstRecord_, t_, codeRecord_);
        return;
    }
    for (std::int32_t r = codeRecord_ - 1; r >= firstRecord_; --r) {
        if (t_.Statements[t_.Records[r].FirstS].Class == StatementClass::Blank) break;
        t_.Records[r].TiedTo = codeRecord_;
        t_.Records[r].TiedStart = firstRecord_ - 1;
    }
}

void LogicalLineParser::indent(bool hashLine) {
    if (!lead_.Flags.has(StatementFlag::Indent)) {
        if (lead_.Class == StatementClass::ProcStart) m_.IndentLevel = 0;
        return;
    }
    if (t_.StatementCount == firstStatement_ && !hashLine) {
        ++m_.IndentLevel;
        return;
    }
    bool verbIsIf = lead_.Verb != 0 && equalsUpper(t_.Tokens[lead_.Verb].text(), "IF");
    if (!verbIsIf && !flagsOf(t_.StatementCount).has(StatementFlag::Outdent)) ++m_.IndentLevel;
    else t_.Statements[firstStatement_].Flags.clear(StatementFlag::Indent);
}

}  // namespace

void BabParseRecord(SourceFile& file, SourceTables& tables) {
    TraceScope trace(theDebug().TracePackages, "BabParseRecord");
    if (!basiclan().BabInitDone) {
        theDebug().setStatus(kStatusNotInitialised, 0);
        raiseInternal("BabParseRecord");
    }
    theDebug().setStatus(kStatusOk, 0);
    if (file.atEnd()) {
        theDebug().BabStatus = kStatusEndOfFile;
        return;
    }
    LogicalLineParser(file, tables).parse();
}

void OutdentMultipleNext(std::int16_t& indentLevel, const Statement& s, const SourceTables& t) {
    int parenLevel = 0;
    for (std::int32_t i = s.Verb + 1; i <= s.LastSignificant; ++i) {
        std::string_view text = t.Tokens[i].text();
        if (text == "(") ++parenLevel;
        else if (text == ")") --parenLevel;
        else if (text == "," && parenLevel == 0) --indentLevel;
        if (parenLevel < 0) {
            reportInternalFault("OutdentMultipleNext", "Paren-level < 0.");
            if (theDebug().DontFixDataErrors) raiseInternal("OutdentMultipleNext");
        }
    }
}

}  // namespace hlyd
