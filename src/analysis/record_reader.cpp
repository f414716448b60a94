#include "analysis/record_reader.h"

#include <cstdint>
#include <new>
#include <utility>

#include "analysis/basiclan_state.h"
#include "analysis/tokenizer.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"

namespace hlyd {

namespace {

constexpr const char* kProcName = "ReadRecordExtractTokens";

bool continuesComment(const SourceTables& t, bool inContinuedComment) {
    if (inContinuedComment) return true;
    if (t.TokenCount < 1) return false;
    const Token& last = t.Tokens[t.TokenCount];
    return last.is(CommentishDetail::Comment) && last.Continued == 1;
}

// The whole line, blanks and all, is one more piece of the comment above it.
void readCommentContinuation(std::string_view line, SourceTables& t, BasiclanModule& m) {
    if (t.TokenCount + 1 > m.TokensUBound || t.RecordCount + 1 > m.RecordsUBound) raiseRuntime(9, kProcName);
    Token& token = t.Tokens[++t.TokenCount];
    token = Token{};
    token.set(CommentishDetail::Comment);
    m.RecordIndex = ++t.RecordCount;
    std::string_view text = t.Texts->set(m.RecordIndex, line);
    if (!text.empty() && text.back() == '_') {
        token.Continued = 1;
        text.remove_suffix(1);
    }
    if (!text.empty()) token.setText(text);
    Record record;
    record.FirstT = record.LastT = t.TokenCount;
    t.Records[m.RecordIndex] = record;
}

// A token's texts are pieces of its line, and are kept as views of the line as stored; only a
// text the tokenizer composed (a string that gains its closing quote, "Rem" and its blank) is
// copied, with its leading blanks before it. A copy of every text was a second copy of the whole
// file.
class TokenKeeper {
public:
    TokenKeeper(std::string_view line, std::string_view stored, TokenTextStore& texts)
        : line_(line), stored_(stored), texts_(texts) {}

    void keep(const WorkToken& work, Token& token) const {
        static_cast<TokenFields&>(token) = work;
        std::string_view text = work.Text, lead = work.LeadingSpace;
        token.LeadingLength = static_cast<std::uint16_t>(lead.size());
        // As addresses: a text that is not in the line lies before it (and wraps round to an
        // offset past its end) or after it.
        auto offset = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(text.data()) -
                                               reinterpret_cast<std::uintptr_t>(line_.data()));
        bool inLine = offset <= line_.size() && text.size() <= line_.size() - offset;
        bool leadBefore = lead.empty() || lead.data() + lead.size() == text.data();
        if (!text.empty() && inLine && leadBefore) token.setText({stored_.data() + offset, text.size()});
        else token.setText(texts_.keepAfter(lead, text));
    }

private:
    std::string_view line_;
    std::string_view stored_;
    TokenTextStore& texts_;
};

void growTokensFor(SourceTables& t, BasiclanModule& m, std::int32_t incoming) {
    if (t.TokenCount + incoming <= m.TokensUBound) return;
    m.TokensUBound += kTokensStep;
    if (m.TokensUBound <= kTokensLimit) {
        t.Tokens.redimPreserve(m.TokensUBound);
        return;
    }
    m.TokensUBound = kTokensLimit;
    theDebug().setStatus(kStatusTooManyTokens, 0);
    raiseInternal(kProcName);
}

// A kept token holds the lengths of its text and of its leading blanks in 16 bits; a longer line
// is not read. The lines as kept are found by 32-bit offsets: each has a token at least.
static_assert(kMaxRecordLength < 0xFFFF);
static_assert(std::uint64_t{kTokensLimit} * (kMaxRecordLength + 2) < (std::uint64_t{1} << 32));

void readCodeLine(std::string_view line, SourceTables& t, BasiclanModule& m) {
    std::int32_t count = 0;
    ExtractTokens(line, m.WorkTokens, count);
    if (theDebug().BabStatus == kStatusReadingStopped) {
        theDebug().setStatus(kStatusLineTooComplex, 0);
        raiseInternal(kProcName);
    }
    AnalyzeTokens(m.WorkTokens, count);
    growTokensFor(t, m, count);
    if (++m.RecordIndex > m.RecordsUBound - kGrowthMargin) {
        m.RecordsUBound += kRecordsStep;
        t.Records.redimPreserve(m.RecordsUBound);
    }
    const TokenKeeper keeper(line, t.Texts->set(m.RecordIndex, line), t.TokenTexts);
    for (std::int32_t i = 1; i <= count; ++i) keeper.keep(m.WorkTokens[i], t.Tokens[t.TokenCount + i]);
    Record record;
    record.FirstT = t.TokenCount + 1;
    record.LastT = t.TokenCount + count;
    t.TokenCount += count;
    t.Records[m.RecordIndex] = record;
}

std::string failureMessage(int status) {
    switch (status) {
        case kStatusInvalidToken: return "Invalid Token -- could not be processed";
        case kStatusLineTooLong: return "Record too big -- greater than 2048 characters";
        case kStatusLineTooComplex:
            return "Record too complex -- contains more than " + std::to_string(kWorkTokensUBound) + " tokens";
        case kStatusTooManyTokens: return "Too many tokens -- more than 500000";
        default: return "Unknown error";
    }
}

// What was read stays; a marker token and record stand in for the line, and reading ends.
void recover(SourceTables& t, BasiclanModule& m, int number, const std::string& description) {
    cDebug& debug = theDebug();
    std::string message;
    if (number == kInternalError) {
        message = failureMessage(debug.BabStatus);
        debug.BabStatusDetail = debug.BabStatus;
    } else {
        message = description;
        debug.BabStatusDetail = static_cast<std::int16_t>(number);
    }
    theLog().LogData(std::string("The following error occurred in proc ") + kProcName +
                     " reading record:" + std::to_string(m.RecordIndex + 1) + ". \n===>" + message);
    if (t.TokenCount < kTokensLimit) ++t.TokenCount;
    if (t.TokenCount > m.TokensUBound) {
        if (++m.TokensUBound > kTokensLimit) {
            m.TokensUBound = t.TokenCount = kTokensLimit;
        } else {
            t.Tokens.redimPreserve(m.TokensUBound);
        }
    }
    Token& marker = t.Tokens[t.TokenCount];
    marker = Token{};
    marker.Class = TokenClass::Invalid;
    marker.setText(kInvalidRecordText);
    if (++m.RecordIndex > m.RecordsUBound - kGrowthMargin) {
        ++m.RecordsUBound;
        t.Records.redimPreserve(m.RecordsUBound);
    }
    t.Records[m.RecordIndex].FirstT = t.TokenCount;
    t.Records[m.RecordIndex].LastT = t.TokenCount;
    debug.BabStatus = kStatusReadingStopped;
}

// The empty Record after the last line marks the end of the file.
void addSentinelAtEnd(SourceFile& file, SourceTables& t, BasiclanModule& m) {
    if (!file.atEnd() && theDebug().BabStatus != kStatusReadingStopped) return;
    if (++m.RecordIndex > m.RecordsUBound - kGrowthMargin) {
        m.RecordsUBound = m.RecordIndex;
        t.Records.redimPreserve(m.RecordsUBound);
    }
    t.Records[m.RecordIndex] = Record{};
}

}  // namespace

std::string readingStopReason(int detail) { return detail < 0 ? failureMessage(detail) : errorDescription(detail); }

void ReadRecordExtractTokens(SourceFile& file, SourceTables& t, bool& inContinuedComment) {
    BasiclanModule& m = basiclan();
    cDebug& debug = theDebug();
    debug.BabStatus = kStatusOk;
    if (file.atEnd()) {
        debug.BabStatus = kStatusEndOfFile;
        return;
    }
    if (t.RecordCount == 0) m.RecordIndex = 0;
    try {
        std::string_view line = file.readLine();
        if (line.size() > static_cast<std::size_t>(kMaxRecordLength)) {
            debug.setStatus(kStatusLineTooLong, 0);
            raiseInternal(kProcName);
        }
        if (continuesComment(t, inContinuedComment)) readCommentContinuation(line, t, m);
        else readCodeLine(line, t, m);
    } catch (const HlydError& e) {
        recover(t, m, e.Number, e.Description);
    } catch (const std::bad_alloc&) {
        recover(t, m, 7, errorDescription(7));
    }
    addSentinelAtEnd(file, t, m);
    t.RecordCount = m.RecordIndex;
}

}  // namespace hlyd
