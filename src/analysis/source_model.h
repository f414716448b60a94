#pragma once
// What a source file becomes once read: Records (physical lines), Statements and Tokens, three
// parallel tables indexed from 1 (element 0 is never used; index 0 means "none").
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "analysis/record_texts.h"
#include "analysis/source_codes.h"
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

struct Statement {
    StatementClass Class = StatementClass::Ordinary;
    StatementDetail Detail = StatementDetail::None;
    std::int32_t FirstToken = 0;
    StatementFlags Flags;
    std::int32_t LastSignificant = 0;
    std::int32_t LastToken = 0;
    std::int32_t FirstRecord = 0;
    std::int32_t LastRecord = 0;
    std::int32_t Verb = 0;
};

// What a token is besides its texts, in as few bytes as its values need: a large module has a
// quarter of a million tokens, and each byte of them is a quarter of a megabyte of fresh memory
// the system must hand over. The widest numbers come first, so that nothing pads the texts.
struct TokenFields {
    std::int32_t Statement = 0;
    std::int16_t pKeyWord = 0;  // keyword entries past its range are never found
    TokenClass Class = TokenClass::Keyword;
    std::uint8_t Detail = 0;  // means something only within Class: is() and set() read and write it
    TokenFlags Flags;
    std::uint8_t Continued = 0;
    // The blanks that stand right before the text (a kept token's; the line being cut has its own).
    std::uint16_t LeadingLength = 0;

    // A keyword was looked for and found: the token is drawn as one, whatever it became.
    bool keyWordSeen() const { return Flags.has(TokenFlag::KeyWordSeen); }

    // Whether the token is of the class and detail that `detail` names, as in is(LiteralDetail::Number).
    template <class ClassDetail>
    bool is(ClassDetail detail) const {
        return Class == classOf(detail) && Detail == static_cast<std::uint8_t>(detail);
    }
    template <class ClassDetail>
    void set(ClassDetail detail) {
        Class = classOf(detail);
        Detail = static_cast<std::uint8_t>(detail);
    }
    // The detail of a token already known to be of its class.
    template <class ClassDetail>
    ClassDetail detailAs() const {
        return static_cast<ClassDetail>(Detail);
    }
};
static_assert(sizeof(TokenFields) == 12, "a token's fields are a quarter megabyte per byte in a large module");

// A token of the line being cut. Its texts are views into the line, which outlives it until the
// tokens are kept: nearly every token is a piece of the line as it stands, and a heap string per
// token was a seventh of the run. The few texts the line does not hold as they are (a string
// gains its closing quote, "Rem" its blank) are composed in Own, which the token keeps for the
// next line.
struct WorkToken : TokenFields {
    // The running position of the token in its line, one-based at the first token and approximate
    // after it; nothing reads it once the line is cut, so the kept tokens leave it out.
    std::int32_t Column = 0;
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

// A token of the tables: its text is a view into the lines as kept (Texts) or, when composed,
// into TokenTexts; both outlive it. The blanks before it stand right before its text, in the line
// or in TokenTexts where the text was composed, so that their length is all a token holds of them;
// the text's own length, like theirs, is never more than a line's and takes 16 bits. A token is
// 24 bytes, and a large module has a quarter of a million of them.
struct Token : TokenFields {
    std::string_view text() const { return {textAt_, textLength_}; }
    // A text of a line, which is never longer than a record and what the reader adds to it.
    void setText(std::string_view text) {
        textAt_ = text.data();
        textLength_ = static_cast<std::uint16_t>(text.size());
    }
    std::string_view leadingSpace() const {
        return LeadingLength == 0 ? std::string_view() : std::string_view(textAt_ - LeadingLength, LeadingLength);
    }

private:
    std::uint16_t textLength_ = 0;
    const char* textAt_ = nullptr;
};
static_assert(sizeof(Token) == 24, "a large module holds a quarter of a million tokens");

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
