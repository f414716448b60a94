// The cross-reference: what each member declares, and which declaration each use reaches by VB's
// rules across the members of the file table.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "test_support.h"
#include "xref/name_index.h"
#include "xref_dump.h"

namespace hlyd {
namespace {

const char* const kShapes =
        "Attribute VB_Name = \"Shapes\"\n"  // 1
        "Option Explicit\n"
        "Public Type TPoint\n"
        "    X As Long\n"
        "End Type\n"  // 5
        "Public Enum EColor\n"
        "    Red = 1\n"
        "    Green\n"
        "End Enum\n"
        "Public Const MaxShapes As Long = 10, Spare = 2\n"  // 10
        "Public gCount As Long, gName As String\n"
        "Private mTotal As Long\n"
        "Public Common As Long\n"
        "Private Declare Function GetTickCount Lib \"kernel32\" (ByVal hWnd As Long) As Long\n"
        "\n"  // 15
        "Public Function AddShape(ByVal gCount As Long) As Long\n"
        "    Dim mTotal As Long\n"
        "    mTotal = gCount + MaxShapes ' gName in a comment\n"
        "    AddShape = mTotal\n"
        "    Debug.Print \"gName in a string\"\n"  // 20
        "End Function\n"
        "\n"
        "Private Sub Tally()\n"
        "    Dim i As Long\n"
        "    For i = 1 To MaxShapes\n"  // 25
        "        gCount = gCount + AddShape(i)\n"
        "    Next\n"
        "    mTotal = GetTickCount(0) + EColor.Red + _\n"
        "        Green\n"
        "End Sub\n";  // 30

const char* const kOther =
        "Attribute VB_Name = \"Other\"\n"  // 1
        "Public Common As Long\n"
        "Private mTotal As Long\n"
        "Public Sub Run()\n"
        "    Shapes.gName = \"x\"\n"  // 5
        "    gCount = 1\n"
        "    Common = 2\n"
        "    mTotal = Shapes.mTotal\n"
        "    Dim p As TPoint\n"
        "    p.X = MaxShapes\n"  // 10
        "    frmShapes.txtName.Text = \"\"\n"
        "    Call AddShape(gCount:=Common)\n"  // 12: gCount names AddShape's argument
        "End Sub\n";

const char* const kCounter =
        "VERSION 1.0 CLASS\n"  // 1
        "BEGIN\n"
        "  MultiUse = -1\n"
        "END\n"
        "Attribute VB_Name = \"Counter\"\n"  // 5
        "Private mValue As Long\n"
        "Public Property Get Value() As Long\n"
        "    Value = mValue\n"
        "End Property\n"
        "Public Property Let Value(ByVal v As Long)\n"  // 10
        "    mValue = v\n"
        "End Property\n"
        "Public Sub Bump()\n"
        "    Me.Value = Value + 1\n"
        "    Common = 3\n"  // 15: two modules declare it Public, so it reaches neither
        "End Sub\n";

const char* const kForm =
        "VERSION 5.00\n"  // 1
        "Begin VB.Form frmShapes\n"
        "   Caption = \"Shapes\"\n"
        "   Begin VB.CommandButton cmdGo\n"
        "      Index = 0\n"  // 5
        "   End\n"
        "   Begin VB.CommandButton cmdGo\n"
        "      Index = 1\n"
        "   End\n"
        "   Begin VB.TextBox txtName\n"  // 10
        "      BeginProperty Font\n"
        "         Name = \"Arial\"\n"
        "      EndProperty\n"
        "   End\n"
        "End\n"  // 15
        "Attribute VB_Name = \"frmShapes\"\n"
        "Private Sub cmdGo_Click(Index As Integer)\n"
        "    txtName.Text = cmdGo(Index).Caption\n"
        "End Sub\n";

class XrefTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        showSource("Shapes.bas", kShapes);
        showSource("Other.bas", kOther);
        showSource("Counter.cls", kCounter);
        showSource("frmShapes.frm", kForm);
        index = indexOpenFiles();
    }

    const IndexedName& name(const std::string& module, const std::string& text, NameKind kind) const {
        auto it = std::find_if(index.names.begin(), index.names.end(), [&](const IndexedName& n) {
            return n.module == module && n.name == text && n.kind == kind;
        });
        EXPECT_NE(it, index.names.end()) << module << "." << text;
        static const IndexedName none;
        return it == index.names.end() ? none : *it;
    }

    // Each use as "Module:line:proc", with "=" behind a write.
    std::vector<std::string> uses(const IndexedName& n) const {
        std::vector<std::string> out;
        for (const NameUse& u : n.uses) {
            std::string file = u.place.file.substr(u.place.file.find_last_of('/') + 1);
            out.push_back(file.substr(0, file.find('.')) + ":" + std::to_string(u.place.line) + ":" + u.place.proc +
                          (u.written ? "=" : ""));
        }
        return out;
    }

    NameIndex index;
};

using Uses = std::vector<std::string>;

TEST_F(XrefTest, EveryKindIsDeclaredWhereItStandsAndLocalsAreNotIndexed) {
    struct Expected {
        const char* name;
        NameKind kind;
        bool isPublic;
        int line;
    };
    for (const Expected& e : {Expected{"TPoint", NameKind::kType, true, 3},
                              {"X", NameKind::kTypeMember, true, 4},
                              {"EColor", NameKind::kEnum, true, 6},
                              {"Green", NameKind::kEnumMember, true, 8},
                              {"Spare", NameKind::kConst, true, 10},
                              {"gName", NameKind::kVariable, true, 11},
                              {"mTotal", NameKind::kVariable, false, 12},
                              {"GetTickCount", NameKind::kDeclare, false, 14},
                              {"AddShape", NameKind::kFunction, true, 16},
                              {"Tally", NameKind::kSub, false, 23}}) {
        const IndexedName& n = name("Shapes", e.name, e.kind);
        EXPECT_EQ(n.isPublic, e.isPublic) << e.name;
        EXPECT_EQ(n.declared.line, e.line) << e.name;
        EXPECT_EQ(n.declared.proc, "") << e.name;
    }
    EXPECT_EQ(index.files.size(), 4u);
    for (const IndexedName& n : index.names) {
        EXPECT_NE(n.kind, NameKind::kParameter) << n.name;
        EXPECT_FALSE(n.name == "i" || n.name == "hWnd" || n.name == "v") << n.name;
    }
}

TEST_F(XrefTest, LocalsShadowTheModulesNamesAndTheModulesShadowOtherMembers) {
    // AddShape's parameter gCount and its local mTotal hide the module's; Other's own mTotal and
    // Common hide those of Shapes. Counter's Common could be either module's and is neither.
    EXPECT_EQ(uses(name("Shapes", "gCount", NameKind::kVariable)),
              (Uses{"Shapes:26:Tally=", "Shapes:26:Tally", "Other:6:Run="}));
    EXPECT_EQ(uses(name("Shapes", "mTotal", NameKind::kVariable)), (Uses{"Shapes:28:Tally="}));
    EXPECT_EQ(uses(name("Other", "mTotal", NameKind::kVariable)), (Uses{"Other:8:Run="}));
    EXPECT_EQ(uses(name("Other", "Common", NameKind::kVariable)), (Uses{"Other:7:Run=", "Other:12:Run"}));
    EXPECT_TRUE(uses(name("Shapes", "Common", NameKind::kVariable)).empty());
    EXPECT_EQ(uses(name("Shapes", "AddShape", NameKind::kFunction)),
              (Uses{"Shapes:19:AddShape=", "Shapes:26:Tally", "Other:12:Run"}));
}

TEST_F(XrefTest, QualifiedNamesResolveInTheModuleEnumOrObjectTheyName) {
    // "Shapes.gName" is a write in Other; "Shapes.mTotal" is Private there and reaches nothing;
    // "p.X" is a member of an object and is not guessed; neither comments nor strings use gName.
    EXPECT_EQ(uses(name("Shapes", "gName", NameKind::kVariable)), (Uses{"Other:5:Run="}));
    EXPECT_TRUE(uses(name("Shapes", "X", NameKind::kTypeMember)).empty());
    EXPECT_EQ(uses(name("Shapes", "Red", NameKind::kEnumMember)), (Uses{"Shapes:28:Tally"}));
    // A statement continued over two lines: the use stands on its own line.
    EXPECT_EQ(uses(name("Shapes", "Green", NameKind::kEnumMember)), (Uses{"Shapes:29:Tally"}));
    EXPECT_EQ(uses(name("Shapes", "EColor", NameKind::kEnum)), (Uses{"Shapes:28:Tally"}));
    EXPECT_EQ(uses(name("Shapes", "TPoint", NameKind::kType)), (Uses{"Other:9:Run"}));
    EXPECT_EQ(uses(name("Shapes", "MaxShapes", NameKind::kConst)),
              (Uses{"Shapes:18:AddShape", "Shapes:25:Tally", "Other:10:Run"}));
    EXPECT_EQ(uses(name("Shapes", "GetTickCount", NameKind::kDeclare)), (Uses{"Shapes:28:Tally"}));
}

TEST_F(XrefTest, APropertyIsReadThroughItsGetAndWrittenThroughItsLet) {
    // Inside the Get, its own name takes the value it returns.
    EXPECT_EQ(uses(name("Counter", "Value", NameKind::kPropertyGet)), (Uses{"Counter:8:Value=", "Counter:14:Bump"}));
    EXPECT_EQ(uses(name("Counter", "Value", NameKind::kPropertyLet)), (Uses{"Counter:14:Bump="}));
    EXPECT_EQ(uses(name("Counter", "mValue", NameKind::kVariable)), (Uses{"Counter:8:Value", "Counter:11:Value="}));
}

TEST_F(XrefTest, AFormsControlsAreItsOwnNamesAndTheOthersReachThemThroughTheForm) {
    // The form itself is no control, a control array is one, and a property block is no Begin.
    std::vector<std::string> controls;
    for (const IndexedName& n : index.names)
        if (n.kind == NameKind::kControl) controls.push_back(n.name + ":" + std::to_string(n.declared.line));
    EXPECT_EQ(controls, (Uses{"cmdGo:4", "txtName:10"}));
    EXPECT_EQ(uses(name("frmShapes", "txtName", NameKind::kControl)),
              (Uses{"Other:11:Run", "frmShapes:18:cmdGo_Click"}));
    EXPECT_EQ(uses(name("frmShapes", "cmdGo", NameKind::kControl)), (Uses{"frmShapes:18:cmdGo_Click"}));
}

using XrefPlaceTest = test::ProgramTest;

TEST_F(XrefPlaceTest, AUseAfterAColonStandsOnItsLineAndEveryPlaceKnowsItsToken) {
    showSource("Colons.bas",
               "Attribute VB_Name = \"Colons\"\nPublic A As Long, B As Long\n"
               "Sub Fill()\n    A = 1: B = A\nEnd Sub\n");
    NameIndex index = indexOpenFiles();
    ASSERT_GE(index.names.size(), 2u);
    // The tokens of a line count from 0: "Public A As Long , B".
    EXPECT_EQ(index.names[1].name, "B");
    EXPECT_EQ(index.names[1].declared.token, 5);
    std::vector<std::pair<std::int32_t, std::int32_t>> places;
    for (const NameUse& use : index.names[1].uses) places.emplace_back(use.place.line, use.place.token);
    for (const NameUse& use : index.names[0].uses) places.emplace_back(use.place.line, use.place.token);
    EXPECT_EQ(places, (std::vector<std::pair<std::int32_t, std::int32_t>>{{4, 4}, {4, 0}, {4, 6}}));
}

using XrefDumpTest = test::ProgramTest;

// A generated project: the uses the index finds of a global equal a word search of the code
// outside comments and strings, less the procedures whose local of the same name hides it.
class XrefWordSearchTest : public test::ProgramTest {};

// The whole-word, case-blind occurrences of `name` in a line's code: strings and the comment cut.
int wordsInCode(const std::string& line, const std::string& name) {
    std::string code;
    bool inString = false;
    for (char c : line) {
        if (c == '"') inString = !inString;
        else if (c == '\'' && !inString) break;
        code += inString || c == '"' ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    std::string word;
    for (char c : name) word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    auto isNameChar = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    int count = 0;
    for (std::size_t at = code.find(word); at != std::string::npos; at = code.find(word, at + 1))
        if ((at == 0 || !isNameChar(code[at - 1])) &&
            (at + word.size() >= code.size() || !isNameChar(code[at + word.size()])))
            ++count;
    return count;
}

TEST_F(XrefWordSearchTest, UsesOfAGlobalEqualAWordSearchLessTheShadowedOnes) {
    const char* const kLines[] = {"    gTotal = gTotal + 1",
                                  "    Debug.Print \"gTotal is \" & GTOTAL ' gTotal in a comment",
                                  "    If gTotal > 3 Then x = 1: gTotal = 0",
                                  "    ' gTotal only in a comment",
                                  "    s = \"gTotal only in a string\"",
                                  "    Call Report(gTotal, gTotalMax)",
                                  "    x = Module0.gTotal"};
    std::uint32_t seed = 12345;
    auto next = [&seed](std::uint32_t n) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) % n;
    };
    int expected = 0;
    std::vector<std::string> texts;
    for (int m = 0; m < 12; ++m) {
        std::string text = "Attribute VB_Name = \"Module" + std::to_string(m) + "\"\n";
        if (m == 0) text += "Public gTotal As Long\nPublic gTotalMax As Long\n";
        for (int p = 0; p < 6; ++p) {
            bool shadows = next(4) == 0;
            text += "Public Sub P" + std::to_string(m) + "_" + std::to_string(p) + "()\n";
            if (shadows) text += "    Dim gTotal As Long\n";
            for (std::uint32_t l = 0, lines = 2 + next(6); l < lines; ++l) {
                std::string line = kLines[next(std::size(kLines))];
                // A local hides the global, but Module0.gTotal still names it.
                if (!shadows) expected += wordsInCode(line, "gTotal") - wordsInCode(line, "Module0.gTotal");
                if (!shadows || line.find("Module0.") != std::string::npos)
                    expected += wordsInCode(line, "Module0.gTotal");
                text += line + "\n";
            }
            text += "End Sub\n";
        }
        showSource("Module" + std::to_string(m) + ".bas", text);
    }
    NameIndex index = indexOpenFiles();
    auto it = std::find_if(index.names.begin(), index.names.end(),
                           [](const IndexedName& n) { return n.name == "gTotal" && n.kind == NameKind::kVariable; });
    ASSERT_NE(it, index.names.end());
    EXPECT_GT(expected, 50);
    EXPECT_EQ(static_cast<int>(it->uses.size()), expected);
}

TEST_F(XrefDumpTest, TheToolPrintsANameALineAndRefusesWhatIsNoFile) {
    std::string path = dir + "/Small.bas";
    std::ofstream(path, std::ios::binary) << "Attribute VB_Name = \"Small\"\nPublic Total As Long\n"
                                             "Sub Add()\n    Total = Total + 1\nEnd Sub\n";
    std::ostringstream out, err;
    ASSERT_EQ(dumpCrossReference(path, out, err), 0);
    EXPECT_EQ(out.str(),
              "{\"kind\":\"name\",\"name\":\"Total\",\"type\":\"Variable\",\"module\":\"Small\",\"public\":true,"
              "\"file\":\"" +
                      path + "\",\"line\":2,\"proc\":\"\",\"uses\":[{\"file\":\"" + path +
                      "\",\"line\":4,\"proc\":\"Add\",\"write\":true},{\"file\":\"" + path +
                      "\",\"line\":4,\"proc\":\"Add\",\"write\":false}]}\n"
                      "{\"kind\":\"name\",\"name\":\"Add\",\"type\":\"Sub\",\"module\":\"Small\",\"public\":true,"
                      "\"file\":\"" +
                      path + "\",\"line\":3,\"proc\":\"\",\"uses\":[]}\n");
    std::ostringstream none, devErr;
    EXPECT_EQ(dumpCrossReference("/dev/zero", none, devErr), 2);
    EXPECT_EQ(devErr.str(), "hlyd-dump: cannot open /dev/zero: Not a regular file\n");
    EXPECT_EQ(none.str(), "");
}

}  // namespace
}  // namespace hlyd
