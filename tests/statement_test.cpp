// What one statement is: its verb, class, detail, flags, and the jump targets it names.
#include <ostream>

#include "test_support.h"

namespace hlyd {
namespace {

class StatementTest : public test::AnalysisTest {
protected:
    // The first Statement of a physical line.
    const Statement& lineStatement(std::int32_t r) const { return statement(record(r).FirstS); }
    // The text of a Statement's verb token, empty when it has none.
    std::string verbText(const Statement& s) const { return std::string(s.Verb == 0 ? "" : token(s.Verb).text()); }
};

TEST_F(StatementTest, AssignmentWithoutKeywordHasTheEqualsSignAsVerb) {
    analyze("x = 1\n");
    const Statement& s = statement(1);
    EXPECT_EQ(s.Verb, find("="));
    EXPECT_EQ(s.Class, StatementClass::Ordinary);
    ASSERT_NE(basiclan().LetKeyWord, 0);
    EXPECT_EQ(token(s.Verb).pKeyWord, basiclan().LetKeyWord);
}

// The class of the first statement of each line of a source.
struct ClassCase {
    const char* name;
    std::string source;
    std::vector<StatementClass> classes;
};

void PrintTo(const ClassCase& c, std::ostream* os) { *os << c.name; }

class StatementClassTest : public StatementTest, public ::testing::WithParamInterface<ClassCase> {};

TEST_P(StatementClassTest, OfEachLine) {
    analyze(GetParam().source);
    for (std::size_t r = 1; r <= GetParam().classes.size(); ++r)
        EXPECT_EQ(lineStatement(static_cast<std::int32_t>(r)).Class, GetParam().classes[r - 1]) << "line " << r;
}

using enum StatementClass;
INSTANTIATE_TEST_SUITE_P(
        Sources, StatementClassTest,
        ::testing::Values(ClassCase{"CommentsAndBlanks",
                                    "' note\n\t\nRem more\n\nx = 1 ' tail\n",
                                    {Comment, Blank, Comment, Blank, Ordinary}},
                          ClassCase{"Modifiers",
                                    "Public Sub Foo()\nEnd Sub\nStatic Function G()\nEnd Function\n",
                                    {ProcStart, ProcEnd, ProcStart, ProcEnd}},
                          // Property starts a procedure only with Get, Let or Set.
                          ClassCase{"Property",
                                    "Property Get X()\nProperty = 1\nEnd Property\nProperty Let X(v)\nEnd Property\n",
                                    {ProcStart, Ordinary, ProcEnd, ProcStart, ProcEnd}},
                          // The End statement stops the program.
                          ClassCase{"EndAlone", "Sub A()\nEnd\nEnd Sub\n", {ProcStart, Ordinary, ProcEnd}},
                          // A form's description is ordinary statements flagged; a class's header block is header.
                          ClassCase{"FormHeader",
                                    "VERSION 5.00\nBegin VB.Form F\nCaption = \"F\"\nEnd\n"
                                    "Attribute VB_Name = \"F\"\nOption Explicit\n",
                                    {Header, Ordinary, Ordinary, Ordinary, Header, Ordinary}},
                          ClassCase{"ClassHeader",
                                    "VERSION 1.0 CLASS\nBEGIN\nMultiUse = -1  'True\nEND\n"
                                    "Attribute VB_Name = \"C\"\nOption Explicit\n",
                                    {Header, Header, Header, Header, Header, Ordinary}}),
        [](const ::testing::TestParamInfo<ClassCase>& info) { return std::string(info.param.name); });

TEST_F(StatementTest, ModifiersLetALaterVerbTakeOver) {
    analyze("Public Sub Foo()\nEnd Sub\nStatic Function G()\nEnd Function\n");
    EXPECT_EQ(verbText(lineStatement(1)), "Sub");
    EXPECT_EQ(verbText(lineStatement(3)), "Function");
    EXPECT_FALSE(basiclan().InProc);
}

TEST_F(StatementTest, DeclarationsTakeScopeFromTheirPlace) {
    analyze("Public Foo As Long\n"
            "Private Const A = 1\n"
            "Public Const B = 2\n"
            "Global G As Integer\n"
            "Private Declare Sub Beep Lib \"k\" ()\n"
            "Dim m As Long\n"
            "Public Event Changed()\n"
            "Sub Foo()\n"
            "Dim i\n"
            "Static s\n"
            "ReDim a(3)\n"
            "End Sub\n"
            "Private p As Long\n");
    using enum DeclarationVerb;
    constexpr DeclarationScope kPublic = DeclarationScope::Public, kModule = DeclarationScope::Module,
                               kProc = DeclarationScope::Procedure;
    const StatementDetail expected[] = {declarationDetail(kPublic, Public),  declarationDetail(kModule, Const),
                                        declarationDetail(kPublic, Const),   declarationDetail(kPublic, Public),
                                        declarationDetail(kModule, Declare), declarationDetail(kModule, Dim),
                                        declarationDetail(kPublic, Event),   StatementDetail::None,
                                        declarationDetail(kProc, Dim),       declarationDetail(kProc, Static),
                                        declarationDetail(kProc, ReDim),     StatementDetail::None,
                                        declarationDetail(kModule, Private)};
    for (std::int32_t r = 1; r <= 13; ++r) {
        SCOPED_TRACE(r);
        const Statement& s = lineStatement(r);
        if (expected[r - 1] == StatementDetail::None) continue;
        EXPECT_EQ(s.Class, StatementClass::Declaration);
        EXPECT_EQ(s.Detail, expected[r - 1]);
    }
    EXPECT_EQ(verbText(lineStatement(1)), "Public");
    EXPECT_EQ(verbText(lineStatement(2)), "Const");
}

TEST_F(StatementTest, EndAloneClosesNoBlock) {
    analyze("Sub A()\nEnd\nEnd Sub\n");
    EXPECT_FALSE(lineStatement(2).Flags.has(StatementFlag::Outdent));
}

TEST_F(StatementTest, VerbAfterHashAndIndentOfIf) {
    analyze("#If A Then\n#End If\n");
    EXPECT_EQ(statement(1).Verb, 2);
    EXPECT_EQ(token(2).text(), "If");

    analyze("If a Then ' note\nEnd If\nIf a Then: b\n");
    EXPECT_TRUE(lineStatement(1).Flags.has(StatementFlag::Indent));   // a comment is not significant
    EXPECT_FALSE(lineStatement(3).Flags.has(StatementFlag::Indent));  // more statements follow Then
}

TEST_F(StatementTest, LabelsBelongToTheirStatement) {
    analyze("10 Print x\nlbl: x = 1\na = 1: b = 2\n");
    const Statement& numbered = lineStatement(1);
    EXPECT_TRUE(numbered.Flags.has(StatementFlag::Label));
    EXPECT_TRUE(token(1).is(CommentishDetail::Label));
    EXPECT_EQ(verbText(numbered), "Print");

    EXPECT_EQ(record(2).FirstS, record(2).LastS);
    const Statement& named = lineStatement(2);
    EXPECT_TRUE(named.Flags.has(StatementFlag::Label));
    EXPECT_EQ(named.FirstToken, find("lbl"));
    EXPECT_EQ(named.LastToken, record(2).LastT);
    EXPECT_EQ(verbText(named), "=");

    ASSERT_EQ(record(3).LastS, record(3).FirstS + 1);
    const Statement& first = statement(record(3).FirstS);
    const Statement& second = statement(record(3).LastS);
    EXPECT_TRUE(token(first.LastToken).is(ColonDetail::Separator));
    EXPECT_EQ(first.LastSignificant, first.LastToken - 1);
    EXPECT_EQ(second.FirstToken, find("b"));
    EXPECT_EQ(verbText(second), "=");
    EXPECT_EQ(second.LastToken, record(3).LastT);
    EXPECT_FALSE(first.Flags.has(StatementFlag::Label));

    analyze("lbl: Print x\n");
    EXPECT_EQ(verbText(statement(1)), "Print");  // the verb may stand right after the label
}

TEST_F(StatementTest, OnlyAFormsDescriptionIsFlagged) {
    analyze("VERSION 5.00\nBegin VB.Form F\nCaption = \"F\"\nEnd\nAttribute VB_Name = \"F\"\nOption Explicit\n");
    for (std::int32_t r = 1; r <= 5; ++r)
        EXPECT_EQ(lineStatement(r).Flags.has(StatementFlag::FormDescription), r <= 4) << r;

    analyze("VERSION 1.0 CLASS\nBEGIN\nMultiUse = -1  'True\nEND\nAttribute VB_Name = \"C\"\nOption Explicit\n");
    for (std::int32_t r = 1; r <= 5; ++r) EXPECT_FALSE(lineStatement(r).Flags.has(StatementFlag::FormDescription)) << r;
}

TEST_F(StatementTest, TypeAndEnumMembers) {
    analyze("Type Point\n"      // 1
            "Name As String\n"  // 2: a member may be named like a keyword
            "Y As Long\n"       // 3
            "End Type\n"        // 4
            "Type Empty\n"      // 5
            "End Type\n"        // 6
            "Enum Color\n"      // 7
            "Red\n"             // 8
            "Green = 2\n"       // 9
            "Blue\n"            // 10
            "End Enum\n"        // 11
            "Enum Size\n"       // 12
            "Big = 1\n"         // 13
            "End Enum\n");      // 14
    using enum StatementDetail;
    const StatementDetail detail[] = {TypeHead,        TypeMember, TypeMember,      TypeEnd,
                                      TypeHead,        None,       EnumHeadOrValue, EnumMember,
                                      EnumHeadOrValue, EnumMember, EnumEnd,         EnumHeadOrValue,
                                      EnumHeadOrValue, None};
    for (std::int32_t r = 1; r <= 14; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(lineStatement(r).Detail, detail[r - 1]);
        EXPECT_EQ(lineStatement(r).Class,
                  detail[r - 1] == None ? StatementClass::Ordinary : StatementClass::Declaration);
    }
    EXPECT_TRUE(lineStatement(1).Flags.has(StatementFlag::Indent));
    EXPECT_TRUE(lineStatement(4).Flags.has(StatementFlag::Outdent));
    EXPECT_TRUE(lineStatement(11).Flags.has(StatementFlag::Outdent));
}

// The tokens of a line marked as jump targets; `names` must stay plain identifiers.
struct JumpCase {
    const char* name;
    std::string line;
    std::vector<std::string> targets;
    std::vector<std::string> names = {};
};

void PrintTo(const JumpCase& c, std::ostream* os) { *os << c.line; }

class JumpTargetTest : public StatementTest, public ::testing::WithParamInterface<JumpCase> {};

TEST_P(JumpTargetTest, AreMarked) {
    analyze(GetParam().line + "\n");
    std::vector<std::string> targets;
    for (std::int32_t i = 1; i <= tables().TokenCount; ++i) {
        if (token(i).is(CommentishDetail::LabelRef)) targets.emplace_back(token(i).text());
        if (token(i).text() == ",") {
            EXPECT_TRUE(token(i).is(OperatorDetail::Operator));
        }
    }
    EXPECT_EQ(targets, GetParam().targets);
    for (const std::string& name : GetParam().names) EXPECT_TRUE(token(find(name)).is(IdentifierDetail::Name));
}

// In a single-line If only line numbers are targets.
INSTANTIATE_TEST_SUITE_P(Lines, JumpTargetTest,
                         ::testing::Values(JumpCase{"GoTo", "GoTo Done", {"Done"}},
                                           JumpCase{"OnError", "On Error GoTo Handler", {"Handler"}},
                                           JumpCase{"OnErrorZero", "On Error GoTo 0", {"0"}},
                                           JumpCase{"OnErrorResumeNext", "On Error Resume Next", {}},
                                           JumpCase{"OnGoSub", "On x GoSub a, b, c", {"a", "b", "c"}},
                                           JumpCase{"ResumeNext", "Resume Next", {}},
                                           JumpCase{"ResumeLabel", "Resume Retry", {"Retry"}},
                                           // nothing after the verb within the statement
                                           JumpCase{"ResumeBeforeColon", "Resume: x = 1", {}},
                                           JumpCase{"IfThenElseNumbers", "If a Then 100 Else 200", {"100", "200"}},
                                           JumpCase{"IfGoToNumber", "If a Then GoTo 100", {"100"}},
                                           JumpCase{"IfGoToLabel", "If a Then GoTo Fail", {}, {"Fail"}},
                                           JumpCase{"BlockIf", "If a Then\nEnd If", {}},
                                           JumpCase{"IfAssignsNumber", "If a Then b = 100", {}}),
                         [](const ::testing::TestParamInfo<JumpCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace hlyd
