// Record parsing: indent levels of blocks, conditional compilation, continued lines, and which
// comments travel with the code or procedure below them.
#include <fstream>
#include <sstream>
#include <utility>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "test_support.h"

namespace hlyd {
namespace {

class IndentationTest : public test::AnalysisTest {
protected:
    // Analyses the lines as one file and checks the indent each gives its Record.
    void expectIndents(const std::vector<std::pair<std::string, int>>& lines) {
        std::string text;
        for (const auto& [line, indent] : lines) text += line + "\n";
        analyze(text);
        for (std::size_t r = 0; r < lines.size(); ++r)
            EXPECT_EQ(record(static_cast<std::int32_t>(r) + 1).Indent, lines[r].second) << lines[r].first;
    }
    const Statement& lineStatement(std::int32_t r) const { return statement(record(r).FirstS); }
};

TEST_F(IndentationTest, NestedBlocks) {
    expectIndents({{"Sub Foo()", 0},
                   {"If a Then", 0},
                   {"With obj", 1},
                   {"lbl: .y = 1", 2},      // a label keeps the level
                   {"Do: x = 1: Loop", 2},  // opened and closed on one line
                   {"If a Then b", 2},
                   {"End With", 1},
                   {"ElseIf b Then", 0},
                   {"Select Case x", 1},
                   {"Case 1", 1},
                   {"y = 1", 2},
                   {"End Select", 1},
                   {"Else", 0},
                   {"While z", 1},
                   {"Wend", 1},
                   {"End If", 0},
                   {"End Sub", 0}});
    EXPECT_EQ(basiclan().IndentLevel, 0);
    EXPECT_FALSE(lineStatement(5).Flags.has(StatementFlag::Indent));  // the one-line loop opens nothing
}

TEST_F(IndentationTest, NextWithSeveralVariables) {
    expectIndents({{"If a Then", 0},
                   {"For i = 1 To 3", 1},
                   {"For a(1, 2) = 1 To 3", 2},
                   {"x = 1", 3},
                   {"Next a(1, 2), i", 1},  // the comma in the parentheses separates no variable
                   {"y = 1", 1},
                   {"End If", 0}});
}

TEST_F(IndentationTest, ConditionalCompilationStandsAtTheMargin) {
    expectIndents({{"If a Then", 0},
                   {"#If A Then", 0},
                   {"x = 1", 1},
                   {"#End If", 0},
                   {"y = 1", 1},  // the level comes back
                   {"End If", 0}});
    EXPECT_TRUE(lineStatement(2).Flags.none());  // "#If" opens no block
    EXPECT_FALSE(basiclan().RestoreIndent);

    expectIndents({{"If a Then", 0},
                   {"#If A Then", 0},
                   {"x = 1", 1},
                   {"#Else", 0},
                   {"y = 1", 0},  // the level stays at the margin
                   {"For i = 1 To 2", 0},
                   {"z = 1", 1},  // until the next opener
                   {"Next i", 0},
                   {"#End If", 0},
                   {"w = 1", 0}});
}

// A file that ends just after "#End If" lends nothing to the file read after it.
TEST_F(IndentationTest, NextFileStartsAtTheMarginAfterAFileEndingInHashEndIf) {
    analyze("If a Then\n"
            "#If A Then\n"
            "x = 1\n"
            "#End If\n");
    expectIndents({{"y = 1", 0}, {"If b Then", 0}, {"z = 1", 1}, {"End If", 0}});
    EXPECT_FALSE(basiclan().RestoreIndent);
}

TEST_F(IndentationTest, UnbalancedCloserIsLoggedAndReadingGoesOn) {
    std::string logPath = test::writeTempFile("indentation-test.log", "");
    theLog().LogOpen(logPath, 1);
    EXPECT_EQ(analyze("x = 1\nEnd If\ny = 1\n"), 11);
    theLog().LogClose();
    for (std::int32_t r = 1; r <= 3; ++r) EXPECT_EQ(record(r).Indent, 0) << r;
    EXPECT_TRUE(ui.shown.empty());
    std::stringstream log;
    log << std::ifstream(logPath).rdbuf();
    EXPECT_NE(log.str().find("=====>\nIndent-level < 0.\nMore information follows...\n<====="), std::string::npos);

    theDebug().DontFixDataErrors = true;
    SourceFile file;
    file.openText("x = 1\nEnd If\ny = 1\n");
    BabInitFile(tables(), "6");
    BabParseRecord(file, tables());
    EXPECT_EQ(theDebug().BabStatus, 0);
    BabParseRecord(file, tables());
    EXPECT_EQ(theDebug().BabStatus, 6);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].title, "BabParseRecord -- Internal Error");
    EXPECT_EQ(ui.shown[0].text, "Indent-level < 0.\nMore information follows...");
    BabParseRecord(file, tables());
    EXPECT_EQ(theDebug().BabStatus, 0);
    EXPECT_EQ(record(3).Indent, 0);
}

TEST_F(IndentationTest, ContinuedStatementKeepsOneIndent) {
    expectIndents({{"If a Then", 0},
                   {"x = 1 + _", 1},
                   {"    2 + _", 1},
                   {"    3", 1},
                   {"If b And _", 1},
                   {"    c Then", 1},
                   {"y = 1", 2},
                   {"End If", 1},
                   {"End If", 0}});
    for (std::int32_t r = 2; r <= 4; ++r) {
        EXPECT_EQ(record(r).FirstS, record(2).FirstS) << r;
        EXPECT_EQ(record(r).LastS, record(2).FirstS) << r;
    }
    EXPECT_EQ(lineStatement(2).FirstRecord, 2);
    EXPECT_EQ(lineStatement(2).LastRecord, 4);
}

TEST_F(IndentationTest, FileEndingInACommentGivesItTwoStatements) {
    analyze("x = 1\n' last\n");
    ASSERT_EQ(tables().RecordCount, 3);
    ASSERT_EQ(tables().StatementCount, 3);
    EXPECT_EQ(statement(2).Class, StatementClass::Comment);
    EXPECT_EQ(statement(3).Class, StatementClass::Comment);
    EXPECT_EQ(statement(2).FirstToken, statement(3).FirstToken);
    EXPECT_EQ(statement(3).FirstRecord, 2);
    EXPECT_EQ(statement(3).LastRecord, 2);
    EXPECT_EQ(record(3).FirstS, record(2).FirstS);
    EXPECT_EQ(record(3).LastS, record(2).LastS);
    EXPECT_EQ(record(3).FirstS, 3);
}

TEST_F(IndentationTest, OnlyCommentsDirectlyAboveCodeAreTied) {
    analyze("x = 1\n' one\n' two\n\n' three\ny = 2\n");
    for (std::int32_t r = 2; r <= 4; ++r) EXPECT_EQ(record(r).TiedTo, 0) << r;
    EXPECT_EQ(record(5).TiedTo, 6);
    EXPECT_EQ(record(5).TiedStart, 1);  // the Record ahead of the run of comments
    EXPECT_EQ(record(6).TiedTo, 0);

    analyze("' one\n' two\nIf a Then\nEnd If\n");
    EXPECT_EQ(record(1).TiedTo, 3);
    EXPECT_EQ(record(2).TiedTo, 3);
    EXPECT_EQ(record(1).TiedStart, 0);
}

TEST_F(IndentationTest, CommentsAboveAProcedureFromTheFirstBlankLine) {
    analyze("x = 1\n"      // 1
            "Sub A()\n"    // 2: nothing above it
            "End Sub\n"    // 3
            "' one\n"      // 4
            "' two\n"      // 5
            "Sub C()\n"    // 6
            "End Sub\n");  // 7
    EXPECT_TRUE(lineStatement(2).Flags.has(StatementFlag::ProcListingStart));
    EXPECT_EQ(record(1).TiedTo, 0);
    EXPECT_EQ(record(4).TiedTo, 6);
    EXPECT_EQ(record(5).TiedTo, 6);
    EXPECT_TRUE(lineStatement(4).Flags.has(StatementFlag::ProcListingStart));
    EXPECT_FALSE(lineStatement(6).Flags.has(StatementFlag::ProcListingStart));

    // The procedure takes the run from its first blank line, not from the one nearest to it.
    analyze("' a\n\n' b\n\n' c\nSub D()\nEnd Sub\n");
    EXPECT_EQ(record(1).TiedTo, 0);
    for (std::int32_t r = 2; r <= 5; ++r) EXPECT_EQ(record(r).TiedTo, 6) << r;
    EXPECT_TRUE(lineStatement(2).Flags.has(StatementFlag::ProcListingStart));
    EXPECT_FALSE(lineStatement(4).Flags.has(StatementFlag::ProcListingStart));
}

TEST_F(IndentationTest, ProcedureStartsAtTheMargin) {
    expectIndents({{"Sub A()", 0},
                   {"If a Then", 0},  // never closed
                   {"x = 1", 1},
                   {"End Sub", 1},  // a procedure's end does not outdent
                   {"Sub B()", 1},
                   {"y = 1", 0},
                   {"End Sub", 0}});
}

TEST_F(IndentationTest, FormAndClassHeaders) {
    expectIndents({{"VERSION 5.00", 0},
                   {"Begin VB.Form Form1", 0},
                   {"Caption = \"Form1\"", 1},
                   {"BeginProperty Font", 1},
                   {"Name = \"Arial\"", 2},
                   {"EndProperty", 1},
                   {"Begin VB.CommandButton C1", 1},
                   {"Caption = \"OK\"", 2},
                   {"End", 1},
                   {"End", 0},
                   {"Attribute VB_Name = \"Form1\"", 0},
                   {"Private Sub C1_Click()", 0},
                   {"End Sub", 0}});
    EXPECT_FALSE(basiclan().InFormHeader);

    expectIndents({{"VERSION 1.0 CLASS", 0},
                   {"BEGIN", 0},
                   {"MultiUse = -1  'True", 1},
                   {"END", 0},
                   {"Attribute VB_Name = \"C\"", 0},
                   {"Option Explicit", 0}});
    EXPECT_FALSE(basiclan().InClassHeader);
}

}  // namespace
}  // namespace hlyd
