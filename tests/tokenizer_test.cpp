// How single lines are cut into tokens and classified: the position rules and their oddities,
// which the display and the statement analysis depend on exactly as they are.
#include "test_support.h"

using namespace std::string_literals;

namespace {

class TokenizerTest : public hlyd::test::AnalysisTest {
protected:
    // Token i (from 1) of record r.
    const hlyd::Token& at(std::int32_t r, std::int32_t i) const { return token(record(r).FirstT + i - 1); }

    void expectToken(const hlyd::Token& t, int cls, int detail, const std::string& text) const {
        EXPECT_EQ(t.Text, text);
        EXPECT_EQ(t.Class, cls) << "class of \"" << text << "\"";
        EXPECT_EQ(t.Detail, detail) << "detail of \"" << text << "\"";
    }

    std::string rebuilt(std::int32_t r) const {
        std::string line;
        for (std::int32_t i = record(r).FirstT; i <= record(r).LastT; ++i) line += token(i).LeadingSpace + token(i).Text;
        return line;
    }
};

using Texts = std::vector<std::string>;

TEST_F(TokenizerTest, EmptyBlankAndTrailingBlankLines) {
    ASSERT_EQ(analyze("\n \t \nx = 1   \n"), 11);
    ASSERT_EQ(record(1).FirstT, record(1).LastT);
    expectToken(at(1, 1), 5, 3, "");

    // The blanks of a blank line are its token's text, not leading space.
    ASSERT_EQ(record(2).FirstT, record(2).LastT);
    expectToken(at(2, 1), 5, 3, " \t ");
    EXPECT_EQ(at(2, 1).LeadingSpace, "");

    EXPECT_EQ(texts(3), (Texts{"x", "=", "1", "   "}));
    expectToken(at(3, 4), 5, 3, "   ");
    EXPECT_EQ(at(3, 4).LeadingSpace, "");
    // 1 marks the last token of the line, 2 the first of a statement.
    EXPECT_EQ(at(3, 1).Flags, 2);
    EXPECT_EQ(at(3, 3).Flags, 0);
    EXPECT_EQ(at(3, 4).Flags, 1);
    EXPECT_EQ(at(3, 1).Column, 1);
}

TEST_F(TokenizerTest, HashStandsAloneUnlessItOpensADate) {
    ASSERT_EQ(analyze("#If Debug Then\n"
                      "d = #1/1/98 12:00#\n"
                      "Print #1, a#\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"#", "If", "Debug", "Then"}));
    expectToken(at(1, 1), 4, 6, "#");
    EXPECT_EQ(at(1, 2).Column, at(1, 1).Column + 1);
    EXPECT_EQ(at(1, 2).Class, 0);
    EXPECT_NE(at(1, 2).pKeyWord, 0);

    // A blank does not stop the search for the closing "#".
    EXPECT_EQ(texts(2), (Texts{"d", "=", "#1/1/98 12:00#"}));
    expectToken(at(2, 3), 3, 1, "#1/1/98 12:00#");

    // The type suffix of "a#" closes what the search takes for a date.
    EXPECT_EQ(texts(3), (Texts{"Print", "#1, a#"}));
    expectToken(at(3, 2), 3, 1, "#1, a#");
}

TEST_F(TokenizerTest, BangIsATypeSuffixOnlyWhenGluedAndNotBeforeAName) {
    ASSERT_EQ(analyze("x! = 1\n"
                      "Set f = Forms!Main\n"
                      "Print x !(1)\n"
                      "y = x!\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"x!", "=", "1"}));
    expectToken(at(1, 1), 1, 8, "x!");
    EXPECT_EQ(texts(2), (Texts{"Set", "f", "=", "Forms", "!", "Main"}));
    expectToken(at(2, 5), 4, 6, "!");
    // A blank before it keeps it an operator even before a bracket.
    EXPECT_EQ(texts(3), (Texts{"Print", "x", "!", "(", "1", ")"}));
    expectToken(at(3, 3), 4, 6, "!");
    // The last token of a line is never a suffix.
    EXPECT_EQ(texts(4), (Texts{"y", "=", "x", "!"}));
    expectToken(at(4, 4), 4, 6, "!");
}

TEST_F(TokenizerTest, ColonMakesALabelOnlyAfterALeadingName) {
    ASSERT_EQ(analyze("a: b: c\n"
                      "Else: x = 1\n"
                      ": x = 1\n"
                      "Foo Bar:=1\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"a", ":", "b", ":", "c"}));
    expectToken(at(1, 1), 5, 4, "a");
    expectToken(at(1, 2), 6, 1, ":");
    EXPECT_NE(at(1, 3).Detail, 4) << "only the first name of a line is a label";
    expectToken(at(1, 4), 6, 2, ":");

    EXPECT_NE(at(2, 1).pKeyWord, 0);
    expectToken(at(2, 2), 6, 2, ":");

    expectToken(at(3, 1), 0, 0, ":");
    EXPECT_EQ(at(3, 1).pKeyWord, 0);

    EXPECT_EQ(texts(4), (Texts{"Foo", "Bar", ":=", "1"}));
    expectToken(at(4, 3), 4, 2, ":=");
}

TEST_F(TokenizerTest, StringLiterals) {
    ASSERT_EQ(analyze("s = \"a\"\"b\" & c\n"
                      "t = \"open\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"s", "=", "\"a\"\"b\"", "&", "c"}));
    expectToken(at(1, 3), 3, 3, "\"a\"\"b\"");
    expectToken(at(1, 4), 4, 6, "&");
    // The end of the line closes the string, and the NUL that ended it stays inside.
    expectToken(at(2, 3), 3, 3, "\"open\0\""s);
}

TEST_F(TokenizerTest, NumbersRunOverSignsAndPoints) {
    ASSERT_EQ(analyze("y = a-1\n"
                      "y = 1+2\n"
                      "y = &HFF + b\n"
                      "100 y = 1\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"y", "=", "a", "-1"}));
    expectToken(at(1, 4), 3, 2, "-1");
    EXPECT_EQ(texts(2), (Texts{"y", "=", "1+2"}));
    expectToken(at(2, 3), 3, 2, "1+2");
    // A sign with a blank after it is an operator.
    EXPECT_EQ(texts(3), (Texts{"y", "=", "&HFF", "+", "b"}));
    expectToken(at(3, 3), 3, 2, "&HFF");
    expectToken(at(3, 4), 4, 6, "+");
    // A number that starts a line is its line number.
    expectToken(at(4, 1), 5, 4, "100");
}

TEST_F(TokenizerTest, CommentsTakeTheRestOfTheLine) {
    ASSERT_EQ(analyze("x = 1: Rem note: more\n"
                      "Rem(a\n"
                      "x = 1 ' why \"not\"\n"
                      "REM\n"),
              11);
    EXPECT_EQ(texts(1), (Texts{"x", "=", "1", ":", "Rem note: more"}));
    expectToken(at(1, 5), 5, 1, "Rem note: more");
    // Whatever ended the word REM becomes one blank.
    expectToken(at(2, 1), 5, 1, "Rem a");
    EXPECT_EQ(texts(3), (Texts{"x", "=", "1", "' why \"not\""}));
    expectToken(at(3, 4), 5, 1, "' why \"not\"");
    EXPECT_EQ(at(3, 4).LeadingSpace, " ");
    expectToken(at(4, 1), 5, 1, "REM");
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
    EXPECT_EQ(at(2, 1).LeadingSpace, "    ");
    EXPECT_EQ(record(2).FirstS, record(1).FirstS);

    EXPECT_EQ(texts(3), (Texts{"y", "=", "a"}));
    EXPECT_EQ(at(3, 3).Continued, 1);

    // Blanks after the "_" make a token of their own, so the "_" is not last and continues nothing.
    EXPECT_EQ(texts(5), (Texts{"w", "=", "1", "_", "  "}));
    expectToken(at(5, 4), 4, 6, "_");
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
    expectToken(at(1, 1), 5, 1, "' first ");
    EXPECT_EQ(at(1, 1).Continued, 1);
    ASSERT_EQ(record(2).FirstT, record(2).LastT);
    expectToken(at(2, 1), 5, 1, "   second: x = \"1 ");
    EXPECT_EQ(at(2, 1).LeadingSpace, "");
    EXPECT_EQ(at(2, 1).Continued, 1);
    ASSERT_EQ(record(3).FirstT, record(3).LastT);
    expectToken(at(3, 1), 5, 1, "  REM third");
    EXPECT_EQ(at(3, 1).Continued, 0);

    // A comment after code continues the same way.
    expectToken(at(4, 4), 5, 1, "' tail ");
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
    };
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    ASSERT_EQ(analyze(text), 11);
    for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(rebuilt(static_cast<std::int32_t>(i) + 1), lines[i]);
    EXPECT_EQ(texts(4), (Texts{"label1", ":", "s$", "=", "Mid$", "(", "t", ",", "2", ")", "&", "\"\""}));
}

TEST_F(TokenizerTest, KeywordsDependOnTheDialect) {
    for (const char* dialect : {"3", "4"}) {
        ASSERT_EQ(analyze("Enum Colors\n", dialect), 11);
        expectToken(token(1), 1, 8, "Enum");
        EXPECT_EQ(token(1).pKeyWord, 0) << dialect;
        EXPECT_FALSE(token(1).KeyWordSeen) << dialect;
        EXPECT_FALSE(hlyd::basiclan().InEnum) << dialect;
    }
    for (const char* dialect : {"5", "6"}) {
        ASSERT_EQ(analyze("Enum Colors\n", dialect), 11);
        EXPECT_EQ(token(1).Class, 0) << dialect;
        EXPECT_NE(token(1).pKeyWord, 0) << dialect;
        EXPECT_TRUE(token(1).KeyWordSeen && token(1).KeyWordKept) << dialect;
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
    expectToken(at(2, 1), 1, 8, "Name");
    EXPECT_EQ(at(2, 1).pKeyWord, 0);
    EXPECT_NE(at(2, 2).pKeyWord, 0) << "only the first word is a member";
    EXPECT_NE(at(3, 1).pKeyWord, 0);
    // After End Type the same word is a keyword again.
    EXPECT_NE(at(4, 1).pKeyWord, 0);
    expectToken(at(6, 1), 1, 8, "Print");
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
