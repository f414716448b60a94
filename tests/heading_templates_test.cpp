// Heading templates on the recording printer: 12-point text, 144 twips a character.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>

#include "base/app_info.h"
#include "base/error_tail.h"
#include "base/hlyd_error.h"
#include "base/locale_dates.h"
#include "base/text_format.h"
#include "files/file_table.h"
#include "files/project_file.h"
#include "printing/heading_macros.h"
#include "printing/heading_templates.h"
#include "printing/print_state.h"
#include "printing/recording_printer.h"
#include "settings/attributes.h"
#include "test_support.h"

namespace hlyd {
namespace {

constexpr float kChar = 144;  // the recording printer's width of a 12-point character
constexpr float kLeft = 720;
constexpr float kWidth = 14400;  // 100 characters

struct TailReport {
    int number = 0;
    std::string where;
};

// What the common error tail reported while `body` ran; nothing reported is a failure.
TailReport tailReportOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const TailReport& report) {
        return report;
    }
    ADD_FAILURE() << "nothing reached the error tail";
    return {};
}

// The English month names, whatever the machine's locale.
class CLocale {
public:
    CLocale() {
        if (const char* all = std::getenv("LC_ALL")) previous_ = all;
        setenv("LC_ALL", "C", 1);
    }
    ~CLocale() {
        if (previous_) setenv("LC_ALL", previous_->c_str(), 1);
        else unsetenv("LC_ALL");
    }

private:
    std::optional<std::string> previous_;
};

class HeadingTemplatesTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        resetPrintState();
        setCurrentPrinter(&printer);
        printState().UsableArea.Left = kLeft;
        printState().UsableArea.Width = kWidth;
        displayAttributes().Elements[kElemHeadersFooters].slot[kPrint].XWidth = static_cast<std::int32_t>(kChar);
        setErrorTail([](int number, const std::string&, const std::string&, const std::string& where) {
            throw TailReport{number, where};
        });
        oFile().Add({"/src/projects/halyard/Module1.bas", kFileSource, false, 0, 0});
        fileTable().wCurrentFile = 1;
    }
    void TearDown() override {
        setCurrentPrinter(nullptr);
        resetPrintState();
        theAppInfo().UserName.clear();
        theAppInfo().UserCompany.clear();
        ConfigDirTest::TearDown();
    }

    // The text that one template line gives on a page.
    std::string expand(const std::string& line, std::int32_t page = 1, bool roman = false) {
        cHeadingPart part;
        part.PrintPage = page;
        part.cbPrintAsRoman = roman;
        part.clCurrentRecord = record;
        part.HeadingText(splitOn(line, ';'));
        return part.HeadingText();
    }

    std::int32_t record = 1;
    RecordingPrinter printer{"Recorder", nullptr};
    test::UtcZone utc;
    CLocale cLocale;
};

TEST_F(HeadingTemplatesTest, TokensExpandToLiteralsMacrosAndThemselves) {
    EXPECT_EQ(expand("@DATE;<Page>;@page", 7), "14-Nov-23 Page 7 ");
    EXPECT_EQ(expand("<a>b"), "a ");
    EXPECT_EQ(expand("<>x"), ">x ");  // the ">" right after "<" is no end
    EXPECT_EQ(expand("<no end"), "no end ");
    EXPECT_EQ(expand("< a>"), "a ");  // the piece loses its left blanks
    EXPECT_EQ(expand("foo"), "foo ");
    EXPECT_EQ(expand("@Pagez"), "@Pagez ");  // a mistyped macro prints as itself
    EXPECT_EQ(expand(" ;  ; Mixed Case ;"), "Mixed Case ");
    EXPECT_EQ(expand("@time"), "22:13 ");
    EXPECT_EQ(expand(""), "");
}

TEST_F(HeadingTemplatesTest, NamesOfFileUserAndProject) {
    theAppInfo().UserName = "Ada";
    theAppInfo().UserCompany = "Acme";
    fileTable().sVBName = "modMain";
    auto project = std::make_unique<cProjectFile>();
    project->FileName = "/src/projects/Halyard.vbp";
    oProjectFiles().Add(std::move(project));
    oFile().Item(1).WhichProject = 1;
    // These pieces bring no blank of their own.
    EXPECT_EQ(expand("@user;@company;<>"), "AdaAcme> ");
    EXPECT_EQ(expand("@filename;@vbname;@project"), "Module1.basmodMainHalyard.vbp");
    EXPECT_EQ(expand("@filepath"), "/src/projects/halyard/Module1.bas");
    // A contents page names no file and no project, and numbers in Roman.
    EXPECT_EQ(expand("@filename;@project;@page", 3, true), "iii ");
}

TEST_F(HeadingTemplatesTest, PathIsShortenedAroundDots) {
    // The directory "/src/projects/halyard/" has 22 characters.
    EXPECT_EQ(expand("@path"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<3>"), "...");
    EXPECT_EQ(expand("@path<2>"), "..");
    EXPECT_EQ(expand("@path<4>"), ".../");         // (4 - 3) / 2 rounds to 0
    EXPECT_EQ(expand("@PATH<8>"), "/s...rd/");     // 2.5 rounds to 2, half to even
    EXPECT_EQ(expand("@path<10>"), "/src...rd/");  // 3.5 rounds to 4
    EXPECT_EQ(expand("@path<22>"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<0>"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<>"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<5"), "/src/projects/halyard/");
    // A length beyond 16 bits passes the Print Options check: it is the whole directory, not an
    // overflow that ends every print.
    EXPECT_EQ(expand("@path<32768>"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<" + std::string(400, '9') + ">"), "/src/projects/halyard/");
    EXPECT_EQ(expand("@path<-99999>"), "/src/projects/halyard/");
}

struct RomanCase {
    std::int32_t page;
    const char* text;
};
void PrintTo(const RomanCase& c, std::ostream* out) { *out << c.page << " as \"" << c.text << '"'; }

class RomanPageNumbers : public ::testing::TestWithParam<RomanCase> {};

// Every number has its right numeral: the forties, eighties and nineties too, and contents
// tables of a hundred pages and more.
TEST_P(RomanPageNumbers, AreTheUsualNumerals) { EXPECT_EQ(pageNumberText(GetParam().page, true), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(HeadingTemplates, RomanPageNumbers,
                         ::testing::Values(RomanCase{0, ""}, RomanCase{14, "xiv"}, RomanCase{40, "xl"},
                                           RomanCase{49, "xlix"}, RomanCase{64, "lxiv"}, RomanCase{81, "lxxxi"},
                                           RomanCase{90, "xc"}, RomanCase{99, "xcix"}, RomanCase{100, "c"},
                                           RomanCase{444, "cdxliv"}, RomanCase{1994, "mcmxciv"},
                                           RomanCase{3999, "mmmcmxcix"}, RomanCase{5000, "mmmmm"}));

TEST_F(HeadingTemplatesTest, AContentsPageOfAnyNumberHasItsHeading) {
    EXPECT_EQ(expand("@page", 100, true), "c ");
    EXPECT_EQ(expand("@page", 140, true), "cxl ");
    EXPECT_EQ(expand("@page", 100, false), "100 ");
}

TEST_F(HeadingTemplatesTest, ProcnameComesFromTheCallerOrTheProcedureTable) {
    yProc() = {ProcEntry{"(General)", "", 1}, ProcEntry{"Form_Load", "", 10}, ProcEntry{"Command1_Click", "", 20}};
    record = 15;
    EXPECT_EQ(expand("@procname"), "Form_Load");
    record = 20;
    EXPECT_EQ(expand("@procname;@page", 4), "Command1_Click4 ");
    record = 0;  // before every procedure: the table's first entry
    EXPECT_EQ(expand("@procname"), "(General)");

    cHeadingPart given;
    given.ProcText = "  Named  ";
    given.HeadingText({"@procname"});
    EXPECT_EQ(given.HeadingText(), "Named");

    oFile().Item(1).FileType = kFileProject;
    EXPECT_EQ(expand("@procname"), "");
}

TEST_F(HeadingTemplatesTest, AskShowsTheRoutineAndTakesTheAnswer) {
    yProc() = {ProcEntry{"(General)", "", 1}, ProcEntry{"Form_Load", "", 10}};
    record = 12;
    ui.inputAnswers = {std::string("  reviewed"), std::nullopt};
    EXPECT_EQ(expand("<Note:>;@ask"), "Note: reviewed");
    ASSERT_EQ(ui.inputs.size(), 1u);
    EXPECT_EQ(ui.inputs[0].title, "Enter Description");
    EXPECT_EQ(ui.inputs[0].prompt, "Enter a description for the routine\nForm_Load");
    EXPECT_EQ(ui.inputs[0].defaultText, "");
    EXPECT_EQ(expand("@ask"), "");  // cancelled
}

TEST_F(HeadingTemplatesTest, FileDateAndTimeAreTheLastSave) {
    std::string file = test::writeTempFile("Saved.bas", "Attribute VB_Name = \"Saved\"\n");
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now());
    auto saved = std::filesystem::file_time_type::clock::to_sys(std::filesystem::last_write_time(file));
    std::time_t at = std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::seconds>(saved));
    oFile().Item(1).FileName = file;
    EXPECT_EQ(expand("@filedate;@filetime"), mediumDateText(at) + " " + shortTimeText(at) + " ");

    oFile().Item(1).FileName = file + ".gone";
    EXPECT_EQ(tailReportOf([&] { expand("@filedate"); }).number, 53);
}

TEST_F(HeadingTemplatesTest, SectionsArePlacedLeftCentreAndRight) {
    cHeadings headings;
    headings.PrintPageNumber = 7;
    HeadingExtract("<Left>", 1, headings);
    HeadingExtract("<Page>;@page", 2, headings);  // "Page 7 ": 7 characters
    HeadingExtract("@page", 3, headings);         // "7 ": 2 characters
    EXPECT_EQ(headings.Item("11").XPos(), kLeft);
    EXPECT_EQ(headings.Item("12").XPos(), (kWidth - 7 * kChar) / 2 + kLeft);
    EXPECT_EQ(headings.Item("13").XPos(), kWidth - 2 * kChar + kLeft);

    cHeadings empty;
    HeadingExtract("", 2, empty);
    EXPECT_EQ(empty.Item("12").HeadingText(), "");
    EXPECT_EQ(empty.Item("12").XPos(), 0);
}

TEST_F(HeadingTemplatesTest, TextsAsWideAsTheAreaAreCutExceptOnTheLeft) {
    std::string exact(100, 'w');  // exactly the area's width
    std::string cut = std::string(97, 'w') + "...";
    cHeadings headings;
    HeadingExtract(exact, 1, headings);
    HeadingExtract(exact, 2, headings);
    HeadingExtract(exact + "more", 3, headings);
    EXPECT_EQ(headings.Item("11").HeadingText(), exact + " ");
    EXPECT_EQ(headings.Item("11").XPos(), kLeft);
    EXPECT_EQ(headings.Item("12").HeadingText(), cut);
    EXPECT_EQ(headings.Item("12").XPos(), 0);
    EXPECT_EQ(headings.Item("13").HeadingText(), cut);
    EXPECT_EQ(headings.Item("13").XPos(), kLeft);
}

TEST_F(HeadingTemplatesTest, DynamicPartsAreExpandedAgainAndKeepTheirPlace) {
    cHeadings headings;
    headings.PrintPageNumber = 9;
    HeadingExtract("@date;@time", 1, headings);
    HeadingExtract("@page", 2, headings);
    cHeadingPart& fixed = headings.Item("11");
    cHeadingPart& page = headings.Item("12");
    EXPECT_FALSE(fixed.bIsDynamic);
    EXPECT_TRUE(page.bIsDynamic);
    float centred = page.XPos();

    // The next page, as the page change prints it: only dynamic parts expand again.
    clock.moment += 86400;
    headings.PrintPageNumber = 10;
    headings.UseRoman = false;
    for (cHeadingPart* part : {&headings.Item("11"), &headings.Item("12")})
        if (part->bIsDynamic) part->HeadingText(part->DynamicTag);
    EXPECT_EQ(fixed.HeadingText(), "14-Nov-23 22:13 ");
    EXPECT_EQ(page.HeadingText(), "10 ");
    EXPECT_EQ(page.XPos(), centred);  // placed for "9 ", and left there
}

TEST_F(HeadingTemplatesTest, CollectionKeysLinesAndPassesThePageThroughItem) {
    cHeadings headings;
    HeadingExtract("a|b|c", 1, headings);
    HeadingExtract("x", 3, headings);
    EXPECT_EQ(headings.TotalLines, 3);
    EXPECT_EQ(headings.Count(), 4u);
    EXPECT_EQ(headings.Item("31").HeadingText(), "c ");
    EXPECT_EQ(headings.FindItem("23"), nullptr);
    try {
        headings.Item("23");
        FAIL() << "a missing section was found";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, 9);
    }

    headings.UseRoman = true;
    headings.PrintPageNumber = 4;
    EXPECT_TRUE(headings.Item("13").cbPrintAsRoman);
    EXPECT_EQ(headings.Item("13").PrintPage, 4);

    headings.Clear();  // a second document with fewer lines keeps the larger count
    HeadingExtract("one", 1, headings);
    EXPECT_EQ(headings.TotalLines, 3);
    EXPECT_EQ(headings.Count(), 1u);

    TailReport report = tailReportOf([&] { HeadingExtract("again", 1, headings); });
    EXPECT_EQ(report.number, 457);
    EXPECT_EQ(report.where.rfind("cHeadings::Add line: ", 0), 0u) << report.where;
}

}  // namespace
}  // namespace hlyd
