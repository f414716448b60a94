#pragma once
// What a token or a statement is, as codes. The numbers are fixed: the dump tool prints them, and
// people and scripts compare its output across versions.
#include <cstdint>
#include <type_traits>

namespace hlyd {

// The number behind a code, as the dump tool prints it.
template <class Code>
requires std::is_enum_v<Code>
constexpr std::int32_t codeOf(Code code) { return static_cast<std::int32_t>(code); }

enum class TokenClass : std::uint8_t {
    Keyword = 0,  // also what a token is before anything has classified it
    Identifier = 1,
    Invalid = 2,
    Literal = 3,
    Operator = 4,
    Commentish = 5,  // comments, empty lines, labels
    Colon = 6,
};

// A token's detail means something only within its class, so each class has its own detail type
// and the numbers may repeat from one to the next.
enum class KeywordDetail : std::uint8_t { None = 0 };
enum class IdentifierDetail : std::uint8_t { Name = 8 };
enum class LiteralDetail : std::uint8_t { Date = 1, Number = 2, String = 3 };
enum class OperatorDetail : std::uint8_t { NamedArg = 2, Operator = 6 };
enum class CommentishDetail : std::uint8_t {
    Comment = 1,
    Empty = 3,  // an empty or blank line, or the blanks that end a line
    Label = 4,
    LabelRef = 5,  // a jump target: the name or line number after GoTo, GoSub, Resume, Then, ...
};
enum class ColonDetail : std::uint8_t { LabelColon = 1, Separator = 2 };

// The class each detail type belongs to.
constexpr TokenClass classOf(KeywordDetail) { return TokenClass::Keyword; }
constexpr TokenClass classOf(IdentifierDetail) { return TokenClass::Identifier; }
constexpr TokenClass classOf(LiteralDetail) { return TokenClass::Literal; }
constexpr TokenClass classOf(OperatorDetail) { return TokenClass::Operator; }
constexpr TokenClass classOf(CommentishDetail) { return TokenClass::Commentish; }
constexpr TokenClass classOf(ColonDetail) { return TokenClass::Colon; }

enum class StatementClass : std::int32_t {
    Ordinary = 0,
    Comment = 1,
    Declaration = 2,
    Blank = 3,
    ProcEnd = 4,
    ProcStart = 5,
    Header = 6,
};

// A line that holds only a comment, or nothing, is a statement of that class.
constexpr StatementClass statementClassOf(CommentishDetail lineToken) {
    return lineToken == CommentishDetail::Comment ? StatementClass::Comment : StatementClass::Blank;
}

// A declaration's detail is its scope plus its verb.
enum class DeclarationScope : std::int32_t { Public = 100, Module = 200, Procedure = 300 };
enum class DeclarationVerb : std::int32_t {
    None = 0,
    Const = 1,
    Declare = 2,
    Dim = 3,
    Private = 4,
    Public = 5,  // and Global, its older name
    ReDim = 6,
    Static = 7,
    Event = 8,
};

// The lines of Type and Enum blocks follow the declarations' numbers.
enum class StatementDetail : std::int32_t {
    None = 0,
    TypeMember = 109,       // a line of a Type with no verb: a member
    TypeEnd = 110,          // "End Type" right after a member
    TypeHead = 111,         // a line of a Type with a verb: its "Type" line
    EnumMember = 112,       // a member of an Enum named without a value
    EnumEnd = 113,          // "End Enum" right after such a member
    EnumHeadOrValue = 114,  // a line of an Enum with a verb: its "Enum" line, or a member given a value
};

constexpr StatementDetail declarationDetail(DeclarationScope scope, DeclarationVerb verb) {
    return static_cast<StatementDetail>(codeOf(scope) + codeOf(verb));
}

enum class StatementFlag : std::int32_t {
    ProcListingStart = 1,
    FormDescription = 2,
    Indent = 4,
    KeepLeadingComments = 8,
    Label = 16,
    Outdent = 32,
};

// A statement's flags: the bits of StatementFlag.
class StatementFlags {
public:
    constexpr bool has(StatementFlag flag) const { return (bits_ & codeOf(flag)) != 0; }
    constexpr bool none() const { return bits_ == 0; }
    constexpr void set(StatementFlag flag) { bits_ |= codeOf(flag); }
    constexpr void clear(StatementFlag flag) { bits_ &= ~codeOf(flag); }
    constexpr std::int32_t bits() const { return bits_; }

private:
    std::int32_t bits_ = 0;
};

// A token's place in its line and statement, as bits. The numbers are the dump's, as above.
enum class TokenFlag : std::uint8_t {
    LineEnd = 1,         // the last token of a line
    StatementStart = 2,  // the first token of a statement
    KeyWordSeen = 4,     // a keyword was looked for and found
};

// A token's flags: the bits of TokenFlag, in the one byte a token has for them.
class TokenFlags {
public:
    constexpr bool has(TokenFlag flag) const { return (bits_ & bitOf(flag)) != 0; }
    constexpr bool none() const { return bits_ == 0; }
    constexpr void set(TokenFlag flag) { bits_ = static_cast<std::uint8_t>(bits_ | bitOf(flag)); }
    // Those of a token merged into this one, as when "x!" becomes one name.
    constexpr void add(TokenFlags other) { bits_ = static_cast<std::uint8_t>(bits_ | other.bits_); }
    constexpr std::uint8_t bits() const { return bits_; }

private:
    static constexpr std::uint8_t bitOf(TokenFlag flag) { return static_cast<std::uint8_t>(flag); }
    std::uint8_t bits_ = 0;
};

}  // namespace hlyd
