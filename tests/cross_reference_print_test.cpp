// The printed cross-reference on the recording printer: a project of two modules, a class and a
// form, with enough lines that the names are used on several pages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/open_for_run.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/recording_printer.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

// Lines that only take room: 46 lines fill a page of the recording printer.
std::string padding(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "' pad\n";
    return text;
}

class CrossReferencePrintTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        bareHeadings();
        HlydSettings& s = hlydSettings();
        s.TableOfContents = false;
        s.ProcContentsPrint = false;
        test::writeTempFile("Shared.bas",
                            "Attribute VB_Name = \"Shared\"\n"
                            "Public Total As Long\n"
                            "Public Enum Shade\n"
                            "    shLight\n"
                            "    shDark\n"
                            "End Enum\n"
                            "Public Sub AddTo(ByVal n As Long)\n"
                            "    Total = Total + n\n"
                            "End Sub\n" +
                                    padding(50) +  // page 2 from here
                                    "Public Function Twice(ByVal n As Long) As Long\n"
                                    "    Twice = n * 2\n"
                                    "    AddTo n\n"
                                    "End Function\n");
        test::writeTempFile("Helpers.bas", "Attribute VB_Name = \"Helpers\"\n" + padding(50) +
                                                   "Public Sub UseIt()\n"
                                                   "    AddTo Twice(3)\n"
                                                   "    Total = 0\n"
                                                   "    Debug.Print shDark\n"
                                                   "End Sub\n");
        test::writeTempFile("Counter.cls",
                            "VERSION 1.0 CLASS\n"
                            "BEGIN\n"
                            "  MultiUse = -1\n"
                            "END\n"
                            "Attribute VB_Name = \"Counter\"\n"
                            "Public Count As Long\n"
                            "Public Sub Bump()\n"
                            "    Count = Count + 1\n"
                            "    AddTo 1\n"
                            "End Sub\n");
        test::writeTempFile("Main.frm",
                            "VERSION 5.00\n"
                            "Begin VB.Form Main\n"
                            "   Caption = \"Main\"\n"
                            "End\n"
                            "Attribute VB_Name = \"Main\"\n"
                            "Private Sub Form_Load()\n"
                            "    Dim c As New Counter\n"
                            "    c.Bump\n"
                            "    Total = Twice(Total)\n"
                            "End Sub\n");
        project =
                test::writeTempFile("Pages.vbp",
                                    "Type=Exe\r\nForm=Main.frm\r\nModule=Shared; Shared.bas\r\n"
                                    "Module=Helpers; Helpers.bas\r\nClass=Counter; Counter.cls\r\nName=\"Pages\"\r\n");
        openFileForRun(project);
        events.clear();
    }

    // The texts of the cross-reference's pages, line by line (words on one height joined by
    // blanks); a line indented under the one before begins with "/ ".
    std::vector<std::string> sectionLines() const {
        std::vector<std::string> lines;
        float y = -1;
        int page = 0;
        bool inSection = false;
        for (const PrintEvent& e : events) {
            if (e.kind == PrintEvent::PageStart) inSection = e.type == kPageProcContents;
            if (!inSection || e.kind != PrintEvent::Text || e.text.empty()) continue;
            if (e.page != page || e.y1 != y) lines.push_back(e.x1 == kIndented ? "/ " : "");
            else lines.back() += ' ';
            lines.back() += e.text;
            page = e.page;
            y = e.y1;
        }
        return lines;
    }
    // An entry's lines, the continued ones behind " / ".
    std::string entry(const std::string& start) const {
        std::vector<std::string> lines = sectionLines();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].rfind(start + " (", 0) != 0) continue;
            std::string whole = lines[i];
            while (++i < lines.size() && lines[i].rfind("/ ", 0) == 0) whole += " " + lines[i];
            return whole;
        }
        ADD_FAILURE() << "no entry " << start;
        return {};
    }

    static constexpr float kIndented = 1080 + 4 * 144;  // the left edge and four blanks

    std::string project;
};

TEST_F(CrossReferencePrintTest, EachNameListsThePagesOfItsDeclarationAndUsesFileByFile) {
    hlydSettings().CrossReference = true;
    PrintRunResult result = runPrint({});
    ASSERT_TRUE(result.written) << result.error;
    EXPECT_EQ(entry("AddTo"), "AddTo (Sub) Shared.bas 1: Shared.bas 2; Helpers.bas 2; Counter.cls 1");
    // Longer than the line: a file's name goes on with its first page, under the entry's start.
    EXPECT_EQ(entry("Total"), "Total (Variable) Shared.bas 1: Main.frm 1*; Shared.bas 1*; / Helpers.bas 2*");
    EXPECT_EQ(entry("shDark"), "shDark (Enum Member) Shared.bas 1: Helpers.bas 2");
    EXPECT_EQ(entry("Twice"), "Twice (Function) Shared.bas 2: Main.frm 1; Shared.bas 2*; / Helpers.bas 2");
}

}  // namespace
}  // namespace hlyd
