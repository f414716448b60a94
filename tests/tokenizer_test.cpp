// How single lines are cut into tokens and classified: the position rules and their oddities,
// which the display and the statement analysis depend on exactly as they are.
#include <ostream>
#include <utility>

#include "analysis/tokenizer.h"
#include "test_support.h"

using namespace std::string_literals;

namespace {

using namespace hlyd;

// A token's class and detail, named by any class's detail as in LiteralDetail::Number.
struct Kind {
    template <class ClassDetail>
    Kind(ClassDetail detail) : cls(classOf(detail)), detail(static_cast<std::uint8_t>(detail)) {}
    TokenClass cls;
    std::uint8_t detail;
};

class TokenizerTest : public hlyd::test::AnalysisTest {
protected:
    // Token i (from 1) of record r.
    const hlyd::Token& at(std::int32_t r, std::int32_t i) const { return token(record(r).FirstT + i - 1); }

    void expectToken(const hlyd::Token& t, Kind kind, const std::string& text) const {
        EXPECT_EQ(t.text(), text);
        EXPECT_EQ(codeOf(t.Class), codeOf(kind.cls)) << "class of \"" << text << "\"";
        EXPECT_EQ(t.Detail, kind.detail) << "detail of \"" << text << "\"";
    }

    std::string rebuilt(std::int32_t r) const {
        std::string line;
        for (std::int32_t i = record(r).FirstT; i <= record(r).LastT; ++i)
            (line += token(i).leadingSpace()) += token(i).text();
        return line;
    }
};

using Texts = std::vector<std::string>;

// The running columns of a line's tokens as it is cut; the kept tokens leave them out.
std::vector<std::int32_t> columnsOf(std::string_view line) {
    WorkTokenArray work(kWorkTokensUBound);
    std::int32_t count = 0;
    ExtractTokens(line, work, count);
    std::vector<std::int32_t> columns;
    for (std::int32_t i = 1; i <= count; ++i) columns.push_back(work[i].Column);
    return columns;
}

TEST_F(TokenizerTest, EmptyBlankAndTrailingBlankLines) {
    ASSERT_EQ(analyze("\n \t \nx = 1   \n"), 11);
    ASSERT_EQ(record(1).FirstT, record(1).LastT);
    expectToken(at(1, 1), CommentishDetail::Empty, "");

    // The blanks of a blank line are its token's text, not leading space.
    ASSERT_EQ(record(2).FirstT, record(2).LastT);
    expectToken(at(2, 1), CommentishDetail::Empty, " \t ");
    EXPECT_EQ(at(2, 1).leadingSpace(), "");

    EXPECT_EQ(texts(3), (Texts{"x", "=", "1", "   "}));
    expectToken(at(3, 4), CommentishDetail::Empty, "   ");
    EXPECT_EQ(at(3, 4).leadingSpace(), "");
    // 1 marks the last token of the line, 2 the first of a statement.
    EXPECT_EQ(at(3, 1).Flags.bits(), 2);
    EXPECT_EQ(at(3, 3).Flags.bits(), 0);
    EXPECT_EQ(at(3, 4).Flags.bits(), 1);
    EXPECT_EQ(columnsOf("x = 1").at(0), 1);
}

// One line on its own: the tokens it is cut into, and the class and detail of some of them.
struct LineCase {
    const char* name;
    std::string line;
    Texts texts;
    std::vector<std::pair<int, Kind>> kinds;  // token (from 1), its class and detail
};

void PrintTo(const LineCase& c, std::ostream* os) { *os << c.name; }

class TokenizerLineTest : public TokenizerTest, public ::testing::WithParamInterface<LineCase> {};

TEST_P(TokenizerLineTest, CutsAndClassifies) {
    const LineCase& c = GetParam();
    ASSERT_EQ(analyze(c.line + "\n"), 11);
    EXPECT_EQ(texts(1), c.texts);
    for (const auto& [i, kind] : c.kinds) expectToken(at(1, i), kind, c.texts.at(i - 1));
}

INSTANTIATE_TEST_SUITE_P(
        Lines, TokenizerLineTest,
        ::testing::Values(
                // "#" stands alone unless it opens a date; a blank does not stop the search for the closing "#",
                // and the type suffix of "a#" closes what the search takes for a date.
                LineCase{"HashBeforeKeyword",
                         "#If Debug Then",
                         {"#", "If", "Debug", "Then"},
                         {{1, OperatorDetail::Operator}, {2, KeywordDetail::None}}},
                LineCase{"DateWithBlank",
                         "d = #1/1/98 12:00#",
                         {"d", "=", "#1/1/98 12:00#"},
                         {{3, LiteralDetail::Date}}},
                LineCase{"HashToTypeSuffix", "Print #1, a#", {"Print", "#1, a#"}, {{2, LiteralDetail::Date}}},
                // "!" is a type suffix only when glued to a name and not before a name or a bracket after a
                // blank; the last token of a line is never a suffix.
                LineCase{"BangSuffix", "x! = 1", {"x!", "=", "1"}, {{1, IdentifierDetail::Name}}},
                LineCase{"BangBeforeName",
                         "Set f = Forms!Main",
                         {"Set", "f", "=", "Forms", "!", "Main"},
                         {{5, OperatorDetail::Operator}}},
                LineCase{"BangAfterBlank",
                         "Print x !(1)",
                         {"Print", "x", "!", "(", "1", ")"},
                         {{3, OperatorDetail::Operator}}},
                LineCase{"BangLast", "y = x!", {"y", "=", "x", "!"}, {{4, OperatorDetail::Operator}}},
                // ":" makes a label only after the leading name of a line.
                LineCase{"Labels",
                         "a: b: c",
                         {"a", ":", "b", ":", "c"},
                         {{1, CommentishDetail::Label},
                          {2, ColonDetail::LabelColon},
                          {3, IdentifierDetail::Name},
                          {4, ColonDetail::Separator}}},
                LineCase{"KeywordBeforeColon",
                         "Else: x = 1",
                         {"Else", ":", "x", "=", "1"},
                         {{2, ColonDetail::Separator}}},
                LineCase{"LeadingColon", ": x = 1", {":", "x", "=", "1"}, {{1, KeywordDetail::None}}},
                LineCase{"NamedArgument", "Foo Bar:=1", {"Foo", "Bar", ":=", "1"}, {{3, OperatorDetail::NamedArg}}},
                LineCase{"DoubledQuote",
                         "s = \"a\"\"b\" & c",
                         {"s", "=", "\"a\"\"b\"", "&", "c"},
                         {{3, LiteralDetail::String}, {4, OperatorDetail::Operator}}},
                // The end of the line closes the string, and the NUL that ended it stays inside.
                LineCase{"OpenString", "t = \"open", {"t", "=", "\"open\0\""s}, {{3, LiteralDetail::String}}},
                // Texts the line does not hold as they stand keep them when a joined "!" moves them down.
                LineCase{
                        "OpenStringMovedDown", "x! = \"open", {"x!", "=", "\"open\0\""s}, {{3, LiteralDetail::String}}},
                LineCase{"RemMovedDown", "x!: Rem\tnote", {"x!", ":", "Rem note"}, {{3, CommentishDetail::Comment}}},
                // Numbers run over signs and points; a sign with a blank after it is an operator, and a
                // number that starts a line is its line number.
                LineCase{"SignedNumber", "y = a-1", {"y", "=", "a", "-1"}, {{4, LiteralDetail::Number}}},
                LineCase{"NumberOverPlus", "y = 1+2", {"y", "=", "1+2"}, {{3, LiteralDetail::Number}}},
                LineCase{"HexAndOperator",
                         "y = &HFF + b",
                         {"y", "=", "&HFF", "+", "b"},
                         {{3, LiteralDetail::Number}, {4, OperatorDetail::Operator}}},
                LineCase{"LineNumber", "100 y = 1", {"100", "y", "=", "1"}, {{1, CommentishDetail::Label}}},
                // Comments take the rest of the line; whatever ended the word REM becomes one blank.
                LineCase{"RemAfterColon",
                         "x = 1: Rem note: more",
                         {"x", "=", "1", ":", "Rem note: more"},
                         {{5, CommentishDetail::Comment}}},
                LineCase{"RemBracket", "Rem(a", {"Rem a"}, {{1, CommentishDetail::Comment}}},
                LineCase{"Apostrophe",
                         "x = 1 ' why \"not\"",
                         {"x", "=", "1", "' why \"not\""},
                         {{4, CommentishDetail::Comment}}},
                LineCase{"RemAlone", "REM", {"REM"}, {{1, CommentishDetail::Comment}}}),
        [](const ::testing::TestParamInfo<LineCase>& info) { return std::string(info.param.name); });

// What stands before a keyword leaves it a keyword; a colon that starts a line is none.
TEST_F(TokenizerTest, KeywordsAfterHashAndBeforeColon) {
    ASSERT_EQ(analyze("#If Debug Then\nElse: x = 1\n: x = 1\n"), 11);
    std::vector<std::int32_t> columns = columnsOf("#If Debug Then");
    EXPECT_EQ(columns.at(1), columns.at(0) + 1);
    EXPECT_NE(at(1, 2).pKeyWord, 0);
    EXPECT_NE(at(2, 1).pKeyWord, 0);
    EXPECT_EQ(at(3, 1).pKeyWord, 0);
}

TEST_F(TokenizerTest, ContinuationByUnderscoreOrBackslash) {
    ASSERT_EQ(analyze("x = 1 + _\n"
                      "    2\n"
                      "y = a \\\n"
                      "  + b\n"
                      "w = 1 _  \n"
                      "v = 2\n"),
              11);
    // The "_" leaves the tokens; the token before it carries the continuation.
    EXPECT_EQ(texts(1), (Texts{"x", "=", "1", "+"}));
    EXPECT_EQ(at(1, 4).Continued, 1);
    EXPECT_EQ(texts(2), (Texts{"2"}));
    EXPECT_EQ(at(2, 1).leadingSpace(), "    ");
    EXPECT_EQ(record(2).FirstS, record(1).FirstS);

    EXPECT_EQ(texts(3), (Texts{"y", "=", "a"}));
    EXPECT_EQ(at(3, 3).Continued, 1);

    // Blanks after the "_" make a token of their own, so the "_" is not last and continues nothing.
    EXPECT_EQ(texts(5), (Texts{"w", "=", "1", "_", "  "}));
    expectToken(at(5, 4), OperatorDetail::Operator, "_");
    EXPECT_EQ(at(5, 3).Continued, 0);
    EXPECT_NE(record(6).FirstS, record(5).FirstS);
}

TEST_F(TokenizerTest, ContinuedCommentTakesTheNextLineRaw) {
    ASSERT_EQ(analyze("' first _\n"
                      "   second: x = \"1 _\n"
                      "  REM third\n"
                      "x = 2 ' tail _\n"
                      "   y = 3\n"
                      "z = 4\n"),
              11);
    expectToken(at(1, 1), CommentishDetail::Comment, "' first ");
    EXPECT_EQ(at(1, 1).Continued, 1);
    ASSERT_EQ(record(2).FirstT, record(2).LastT);
    expectToken(at(2, 1), CommentishDetail::Comment, "   second: x = \"1 ");
    EXPECT_EQ(at(2, 1).leadingSpace(), "");
    EXPECT_EQ(at(2, 1).Continued, 1);
    ASSERT_EQ(record(3).FirstT, record(3).LastT);
    expectToken(at(3, 1), CommentishDetail::Comment, "  REM third");
    EXPECT_EQ(at(3, 1).Continued, 0);

    // A comment after code continues the same way.
    expectToken(at(4, 4), CommentishDetail::Comment, "' tail ");
    EXPECT_EQ(at(4, 4).Continued, 1);
    EXPECT_EQ(texts(5), (Texts{"   y = 3"}));
    EXPECT_EQ(texts(6), (Texts{"z", "=", "4"}));
}

TEST_F(TokenizerTest, LeadingSpaceAndTextGiveBackTheLine) {
    const std::vector<std::string> lines = {
            "  If a<>b Then x = a+1 Else y = -2",
            "\tCall Foo(1.5, \"a\"\"b\", #1/2/99#, c:=d)   ",
            "  Debug.Print x!; Forms!Main.Caption  ' done",
            "label1:  s$ = Mid$(t, 2) & \"\"",
            "x = 1 ' why \"not\"",
            // Indentation of eight blanks and more, ended by a tab, a blank or the line.
            "                If x Then",
            "        \t  y = 2",
            "         z = 3",
            std::string(17, ' '),
    };
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    ASSERT_EQ(analyze(text), 11);
    for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(rebuilt(static_cast<std::int32_t>(i) + 1), lines[i]);
    EXPECT_EQ(texts(4), (Texts{"label1", ":", "s$", "=", "Mid$", "(", "t", ",", "2", ")", "&", "\"\""}));
}

// A text the tokenizer composes (an unclosed string gains its NUL and quote, "Rem" its blank) is
// kept apart from the line, and its leading blanks with it.
TEST_F(TokenizerTest, AComposedTextKeepsTheBlanksBeforeIt) {
    ASSERT_EQ(analyze("x =   \"open\r\n   Rem\tnote\r\n"), 11);
    EXPECT_EQ(at(1, 3).text(), std::string("\"open\0\"", 7));
    EXPECT_EQ(at(1, 3).leadingSpace(), "   ");
    EXPECT_EQ(at(2, 1).text(), "Rem note");
    EXPECT_EQ(at(2, 1).leadingSpace(), "   ");
}

// The tokens of a line are made as long lines come: a line of hundreds of tokens keeps its early
// texts while later tokens are added, and its unclosed last string gains its NUL and quote.
TEST_F(TokenizerTest, ALongLineKeepsItsEarlyTexts) {
    std::string line = "x = \"a\"\"b\"";
    for (int i = 0; i < 300; ++i) line += " & v" + std::to_string(i);
    line += " & \"tail";
    ASSERT_EQ(analyze(line + "\r\n"), 11);
    ASSERT_EQ(record(1).LastT - record(1).FirstT + 1, 3 + 2 * 300 + 2);
    EXPECT_EQ(at(1, 3).text(), "\"a\"\"b\"");
    EXPECT_EQ(at(1, 603).text(), "v299");
    EXPECT_EQ(at(1, 605).text(), "\"tail"s + '\0' + "\"");
}

// The texts are views into a store that fills chunk after chunk: a module larger than many chunks
// keeps every early text, and the next file's texts replace the old ones without mixing.
TEST_F(TokenizerTest, TextsOfALargeModuleStayWholeAndGiveWayToTheNextFile) {
    std::vector<std::string> lines;
    lines.reserve(6000);
    for (int i = 0; i < 6000; ++i)
        lines.push_back("  name" + std::to_string(i) + " = \"text " + std::to_string(i * 7) + "\" ' comment " +
                        std::to_string(i));
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    ASSERT_EQ(analyze(text), 11);
    for (std::size_t i = 0; i < lines.size(); i += 97) EXPECT_EQ(rebuilt(static_cast<std::int32_t>(i) + 1), lines[i]);
    EXPECT_EQ(rebuilt(6000), lines.back());

    ASSERT_EQ(analyze("\tb = 2 ' second\r\n"), 11);
    EXPECT_EQ(rebuilt(1), "\tb = 2 ' second");
    EXPECT_EQ(at(1, 1).leadingSpace(), "\t");
}

TEST_F(TokenizerTest, KeywordsDependOnTheDialect) {
    for (const char* dialect : {"3", "4"}) {
        ASSERT_EQ(analyze("Enum Colors\n", dialect), 11);
        expectToken(token(1), IdentifierDetail::Name, "Enum");
        EXPECT_EQ(token(1).pKeyWord, 0) << dialect;
        EXPECT_FALSE(token(1).keyWordSeen()) << dialect;
        EXPECT_FALSE(hlyd::basiclan().InEnum) << dialect;
    }
    for (const char* dialect : {"5", "6"}) {
        ASSERT_EQ(analyze("Enum Colors\n", dialect), 11);
        EXPECT_EQ(token(1).Class, TokenClass::Keyword) << dialect;
        EXPECT_NE(token(1).pKeyWord, 0) << dialect;
        EXPECT_TRUE(token(1).keyWordSeen()) << dialect;
        EXPECT_TRUE(hlyd::basiclan().InEnum) << dialect;
    }
}

TEST_F(TokenizerTest, FirstWordInsideATypeBlockIsAMemberName) {
    ASSERT_EQ(analyze("Type Rec\n"
                      "    Name As String\n"
                      "End Type\n"
                      "Name a As b\n"
                      "Private Type P\n"
                      "    Print As Long\n"
                      "End Type\n"),
              11);
    expectToken(at(2, 1), IdentifierDetail::Name, "Name");
    EXPECT_EQ(at(2, 1).pKeyWord, 0);
    EXPECT_NE(at(2, 2).pKeyWord, 0) << "only the first word is a member";
    EXPECT_NE(at(3, 1).pKeyWord, 0);
    // After End Type the same word is a keyword again.
    EXPECT_NE(at(4, 1).pKeyWord, 0);
    expectToken(at(6, 1), IdentifierDetail::Name, "Print");
    EXPECT_FALSE(hlyd::basiclan().InType);
}

TEST_F(TokenizerTest, TypeAndEnumBlocksAreTracked) {
    ASSERT_EQ(analyze("Public Type T\n  A As Long\n"), 11);
    EXPECT_TRUE(hlyd::basiclan().InType);

    // Inside a procedure "Type" opens no block.
    ASSERT_EQ(analyze("Sub S()\nType T\nName a As b\nEnd Sub\n"), 11);
    EXPECT_FALSE(hlyd::basiclan().InType);
    EXPECT_NE(at(3, 1).pKeyWord, 0);

    ASSERT_EQ(analyze("Public Enum E\n  Red\nEnd Enum\n"), 11);
    EXPECT_FALSE(hlyd::basiclan().InEnum);
    ASSERT_EQ(analyze("Private Enum E\n  Red = 1\n"), 11);
    EXPECT_TRUE(hlyd::basiclan().InEnum);

    // A fresh file forgets an open block.
    ASSERT_EQ(analyze("Type T\n"), 11);
    ASSERT_EQ(analyze("Name a As b\n"), 11);
    EXPECT_NE(token(1).pKeyWord, 0);
}

}  // namespace
