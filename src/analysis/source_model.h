#pragma once
// What a source file becomes once read: Records (physical lines), Statements and Tokens, three
// parallel tables indexed from 1 (element 0 is never used; index 0 means "none").
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "analysis/record_texts.h"
#include "analysis/token_texts.h"
#include "analysis/vb_array.h"

namespace hlyd {

struct Record {
    std::int32_t FirstS = 0;
    std::int32_t FirstT = 0;
    std::int32_t Indent = 0;
    std::int32_t LastS = 0;
    std::int32_t LastT = 0;
    std::int32_t TiedTo = 0;
    std::int32_t TiedStart = 0;
};

// Statement classes.
enum : std::int32_t {
    kStmtOrdinary = 0,
    kStmtComment = 1,
    kStmtDeclaration = 2,
    kStmtBlank = 3,
    kStmtProcEnd = 4,
    kStmtProcStart = 5,
    kStmtHeader = 6,
};

// Statement flags.
enum : std::int32_t {
    kFlagProcListingStart = 1,
    kFlagFormDescription = 2,
    kFlagIndent = 4,
    kFlagKeepLeadingComments = 8,
    kFlagLabel = 16,
    kFlagOutdent = 32,
};

struct Statement {
    std::int32_t Class = 0;
    std::int32_t Detail = 0;
    std::int32_t FirstToken = 0;
    std::int32_t Flags = 0;
    std::int32_t LastSignificant = 0;
    std::int32_t LastToken = 0;
    std::int32_t FirstRecord = 0;
    std::int32_t LastRecord = 0;
    std::int32_t Verb = 0;
};

// Token classes and details.
enum : std::int32_t {
    kTokKeyword = 0,
    kTokIdentifier = 1,
    kTokInvalid = 2,
    kTokLiteral = 3,
    kTokOperator = 4,
    kTokCommentish = 5,  // comments, empty lines, labels
    kTokColon = 6,
};
enum : std::int32_t {
    kDetIdentifier = 8,
    kDetDate = 1,
    kDetNumber = 2,
    kDetString = 3,
    kDetNamedArg = 2,
    kDetOperator = 6,
    kDetComment = 1,
    kDetEmpty = 3,
    kDetLabel = 4,
    kDetLabelRef = 5,
    kDetLabelColon = 1,
    kDetSeparator = 2,
};

// What a token is besides its texts, in as few bytes as its values need: a large module has a
// quarter of a million tokens, and each byte of them is a quarter of a megabyte of fresh memory
// the system must hand over. The widest numbers come first, so that nothing pads the texts.
struct TokenFields {
    std::int32_t Statement = 0;
    std::int32_t Column = 0;
    std::int16_t pKeyWord = 0;  // keyword entries past its range are never found
    std::uint8_t Class = 0;
    std::uint8_t Detail = 0;
    std::uint8_t Flags = 0;
    std::uint8_t Continued = 0;
    bool KeyWordSeen = false;
    bool KeyWordKept = false;

    bool is(std::int32_t cls, std::int32_t detail) const { return Class == cls && Detail == detail; }
};

// A token of the line being cut. Its texts are views into the line, which outlives it until the
// tokens are kept: nearly every token is a piece of the line as it stands, and a heap string per
// token was a seventh of the run. The few texts the line does not hold as they are (a string
// gains its closing quote, "Rem" its blank) are composed in Own, which the token keeps for the
// next line.
struct WorkToken : TokenFields {
    std::string_view Text;
    std::string_view LeadingSpace;
    std::string Own;
    bool TextOwned = false;  // Text views Own, and must follow it when the token moves

    // Adds a piece of the line: a view that it follows grows over it, anything else is composed.
    void extend(std::string_view linePiece) {
        if (!TextOwned && Text.data() + Text.size() == linePiece.data()) {
            Text = std::string_view(Text.data(), Text.size() + linePiece.size());
            return;
        }
        compose(linePiece);
    }
    // Adds text that does not follow in the line.
    void compose(std::string_view more) {
        if (!TextOwned) Own.assign(Text);
        TextOwned = true;
        Own.append(more);
        Text = Own;
    }
    void dropLast() {
        if (TextOwned) Own.pop_back();
        Text = TextOwned ? std::string_view(Own) : Text.substr(0, Text.size() - 1);
    }
    void dropFirst() {
        if (TextOwned) Own.erase(0, 1);
        Text = TextOwned ? std::string_view(Own) : Text.substr(1);
    }
    void setView(std::string_view linePiece) {
        Text = linePiece;
        TextOwned = false;
    }
    // Takes the text of `from`, whose Own may be reused by the next line.
    void takeText(const WorkToken& from) {
        if (!from.TextOwned) return setView(from.Text);
        Own.assign(from.Own);
        TextOwned = true;
        Text = Own;
    }
};

// A token of the tables: its texts are views into the lines as kept (Texts) or, when composed,
// into TokenTexts; both outlive it.
struct Token : TokenFields {
    std::string_view Text;
    std::string_view LeadingSpace;
};

// Blank records, statements and tokens are all zero bytes (a vb_array test holds them to it).
template <>
struct BlankIsZeroBytes<Record> : std::true_type {};
template <>
struct BlankIsZeroBytes<Statement> : std::true_type {};
template <>
struct BlankIsZeroBytes<Token> : std::true_type {};

constexpr const char* kInvalidRecordText = "???InvalidRecord???";

// The tables of the one current file and their counts.
struct SourceTables {
    VbArray<Record> Records;
    std::int32_t RecordCount = 0;
    VbArray<Statement> Statements;
    std::int32_t StatementCount = 0;
    VbArray<Token> Tokens;
    std::int32_t TokenCount = 0;
    // The lines as read; shared with the list of open files' texts, which keeps them when the
    // next file is loaded.
    std::shared_ptr<RecordTexts> Texts = std::make_shared<RecordTexts>();
    // What the tokens' texts view.
    TokenTextStore TokenTexts;
};

// The tables of the selected file, shared by every consumer.
SourceTables& theSourceTables();

void BabInitRecord(Record& record);
void BabInitRecords(VbArray<Record>& records, std::int32_t first, std::int32_t last);
void BabInitStatements(VbArray<Statement>& statements, std::int32_t first, std::int32_t last);
void BabInitTokens(VbArray<Token>& tokens, std::int32_t first, std::int32_t last);
void BabInitToken(Token& token);

// Makes the tables ready for a new file of the dialect ("3" to "6").
void BabInitFile(SourceTables& tables, const std::string& dialect);

}  // namespace hlyd
