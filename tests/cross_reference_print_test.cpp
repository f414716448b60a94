// The printed cross-reference on the recording printer: a project of two modules, a class and a
// form, with enough lines that the names are used on several pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "files/open_for_run.h"
#include "printing/print_run.h"
#include "printing/printer_start.h"
#include "settings/page_settings.h"
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

TEST_F(CrossReferencePrintTest, EveryPageNumberLinksToTheCodePageItNames) {
    hlydSettings().CrossReference = true;
    runPrint({});
    std::set<std::string> named;
    std::string helpersPage2;
    int doc = 0;
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::PageStart && e.page == 1) ++doc;
        if (e.kind == PrintEvent::Destination && e.text.rfind("page", 0) == 0) {
            named.insert(e.text);
            if (doc == 4 && e.page == 2) helpersPage2 = e.text;  // the project, Main, Shared, Helpers
        }
    }
    std::vector<PrintEvent> links = test::eventsOf(events, PrintEvent::Link);
    ASSERT_FALSE(links.empty());
    for (const PrintEvent& link : links) EXPECT_TRUE(named.count(link.text)) << link.text;
    // "Helpers.bas 2" of the entry of shDark leads to Helpers' second page.
    std::vector<PrintEvent> texts = test::eventsOf(events, PrintEvent::Text);
    auto shDark = std::find_if(texts.rbegin(), texts.rend(), [](const PrintEvent& e) { return e.text == "shDark"; });
    ASSERT_NE(shDark, texts.rend());
    auto page = std::find_if(links.begin(), links.end(), [&](const PrintEvent& e) {
        return e.doc == shDark->doc && e.y1 == shDark->y1 && e.x1 > 1080 + 40 * 144;
    });
    ASSERT_NE(page, links.end());
    EXPECT_EQ(page->text, helpersPage2);
}

TEST_F(CrossReferencePrintTest, OffItLeavesThePrintAsItWas) {
    runPrint({});
    for (const PrintEvent& e : events) {
        EXPECT_NE(e.type, kPageProcContents);
        EXPECT_FALSE(e.kind == PrintEvent::Destination && e.text.rfind("page", 0) == 0) << e.text;
    }
}

TEST_F(CrossReferencePrintTest, TheSettingIsSavedWithThePrintChoicesAndReadBack) {
    hlydSettings().CrossReference = true;
    sbPrintINISave();
    resetSettings();
    sbINIGetInfo(false);
    EXPECT_TRUE(hlydSettings().CrossReference);
}

// Many names, on one column and on two: the section's lines stand between the heading and the
// footing and within the page's width, however many pages they take.
class CrossReferencePagesTest : public test::RecorderTest, public ::testing::WithParamInterface<std::int16_t> {};

TEST_P(CrossReferencePagesTest, LinesNeverReachTheFootingNorThePagesEdge) {
    HlydSettings& s = hlydSettings();
    bareHeadings();
    s.FootingCenter = "<Footing>";
    s.TableOfContents = true;
    s.CrossReference = true;
    pageSettings().Columns = ColumnSpec{GetParam(), false, 720, 0};
    InitPrinter();
    std::string code = "Attribute VB_Name = \"Many\"\n";
    for (int i = 0; i < 150; ++i) code += "Public Const LongConstantName" + std::to_string(i) + " = 1\n";
    code += "Sub UseThem()\n";
    for (int i = 0; i < 150; ++i)
        for (int k = 0; k < 3; ++k)
            code += "    Debug.Print LongConstantName" + std::to_string((i * 7 + k) % 150) + "\n";
    code += "End Sub\n";
    showSource("Many.bas", code);
    events.clear();
    runPrint({});
    float footing = 0;
    int sectionPages = 0;
    bool inSection = false;
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::PageStart) inSection = e.type == kPageProcContents;
        if (e.kind == PrintEvent::Text && e.text.rfind("Footing", 0) == 0) footing = e.y1;
    }
    ASSERT_GT(footing, 0);
    for (const PrintEvent& e : events) {
        if (e.kind == PrintEvent::PageStart) inSection = e.type == kPageProcContents && ++sectionPages;
        if (!inSection || e.kind != PrintEvent::Text || e.text.rfind("Footing", 0) == 0) continue;
        EXPECT_LE(e.y1 + 288, footing) << e.text;
        EXPECT_LE(e.x1 + 144 * static_cast<float>(e.text.size()), 1080 + 10080) << e.text;
    }
    EXPECT_GT(sectionPages, 3);  // the contents' page and the cross-reference's
}

INSTANTIATE_TEST_SUITE_P(Columns, CrossReferencePagesTest, ::testing::Values(1, 2));

}  // namespace
}  // namespace hlyd
