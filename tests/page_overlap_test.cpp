// Every text run of a print run, as the pages a user reads first get it: contents and table of
// contents on, the default heading and footing, portrait and landscape, one to three columns.
// No run may stand over another, in the heading's or footing's band, or past the printable area.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#include "files/open_for_run.h"
#include "page_faults.h"
#include "platform/printer.h"
#include "printing/page_change.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "printing/recording_printer.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

// The recording printer turned on its side when the job asks for landscape, as a driver turns
// its sheet: the same figures with the axes swapped.
class TurningRecorder : public RecordingPrinter {
public:
    using RecordingPrinter::RecordingPrinter;
    float width() const override { return turned() ? RecordingPrinter::height() : RecordingPrinter::width(); }
    float height() const override { return turned() ? RecordingPrinter::width() : RecordingPrinter::height(); }
    float scaleWidth() const override {
        return turned() ? RecordingPrinter::scaleHeight() : RecordingPrinter::scaleWidth();
    }
    float scaleHeight() const override {
        return turned() ? RecordingPrinter::scaleWidth() : RecordingPrinter::scaleHeight();
    }
    PrinterCaps caps() const override {
        PrinterCaps c = RecordingPrinter::caps();
        if (turned()) std::swap(c.PhysicalWidth, c.PhysicalHeight);
        return c;
    }

private:
    bool turned() const { return jobProperty(JobProperty::Orientation) == 2; }
};

class TurningRecorderSystem : public RecordingPrinterSystem {
public:
    using RecordingPrinterSystem::RecordingPrinterSystem;
    std::unique_ptr<Printer> open(const std::string& wanted) override {
        return wanted == name() ? std::make_unique<TurningRecorder>(name(), sink()) : nullptr;
    }
};

struct LayoutCase {
    const char* name;
    bool sample;  // the sample project; else the crowded one, whose contents run past page viii
    std::int16_t orientation, columns;
    std::int32_t startPage;  // numbered on and on from here; 0: each module from 1
};

const LayoutCase kCases[] = {
        {"SamplePortrait", true, 1, 1, 0},    {"SampleLandscapeThreeColumns", true, 2, 3, 0},
        {"CrowdedPortrait", false, 1, 1, 0},  {"CrowdedPortraitTwoColumnsFrom95", false, 1, 2, 95},
        {"CrowdedLandscape", false, 2, 1, 0}, {"CrowdedLandscapeThreeColumnsFrom995", false, 2, 3, 995},
};

void PrintTo(const LayoutCase& c, std::ostream* out) { *out << c.name; }

class PageOverlapTest : public test::ProgramTest, public ::testing::WithParamInterface<LayoutCase> {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        const LayoutCase& c = GetParam();
        HlydSettings& s = hlydSettings();
        s.CurrentPrinter = "Recorder";
        s.SaveHYInfo = false;  // nothing is written beside the sample project
        s.TableOfContents = s.ProcContentsPrint = true;
        s.Orientation = c.orientation;
        if (c.startPage > 0) s.PageNumberHow = 2;
        pageSettings().Columns.Columns = c.columns;
        setPrinterSystem(&recorders);
        InitPrinter();
    }
    void TearDown() override {
        setPrinterSystem(nullptr);
        ProgramTest::TearDown();
    }

    // A page begins with its printable area; each text comes with the bands its page keeps and
    // is marked as the frame's when it stands on one of their lines.
    void hear(const PrintEvent& e) {
        Printer* printer = currentPrinter();
        if (e.kind == PrintEvent::PageStart) {
            std::string kind = e.type == kPageProcContents ? "contents " : "";
            pages.push_back({"doc " + std::to_string(e.doc) + " page " + std::to_string(e.page) + " (" + kind +
                                     "page " + std::to_string(e.printed) + ")",
                             printer->scaleWidth(),
                             printer->scaleHeight(),
                             {},
                             {}});
            mostContents = std::max(mostContents, e.type == kPageProcContents ? e.printed : 0);
            mostPrinted = std::max(mostPrinted, e.type == kPageCode ? e.printed : 0);
        }
        if (e.kind != PrintEvent::Text || pages.empty()) return;
        const PrintState& p = printState();
        double line = displayAttributes().Elements[kElemHeadersFooters].slot[kPrint].Height;
        double headLines = pageHeading().TotalLines + (p.OptionalLine.find_first_not_of(' ') != std::string::npos);
        PageText& page = pages.back();
        // The footing stands half a line below the code's area, the band covers that gap too.
        double footLines = pageFooting().TotalLines, gap = footLines > 0 ? std::nearbyint(line / 2) : 0;
        double footTop = p.UsableArea.Bottom + gap;
        page.bands = {{p.UsableArea.Top, p.UsableArea.Top + line * headLines},
                      {p.UsableArea.Bottom, footTop + line * footLines}};
        bool frame = false;
        using Lines = std::pair<double, double>;
        for (auto [top, bottom] : {Lines{p.UsableArea.Top, page.bands[0].second}, Lines{footTop, page.bands[1].second}})
            for (double y = top; y < bottom; y += line) frame = frame || std::fabs(e.y1 - y) < 0.5;
        std::size_t first = std::min(e.text.find_first_not_of(' '), e.text.size());
        std::string inked = e.text.substr(first, e.text.find_last_not_of(' ') + 1 - first);
        double x = e.x1 + printer->textWidth(e.text.substr(0, first));
        page.boxes.push_back({x, e.y1, x + printer->textWidth(inked), e.y1 + printer->textHeight("X"), inked, frame});
    }

    using PageText = test::PageText;
    std::vector<PageText> pages;
    std::int32_t mostContents = 0, mostPrinted = 0;
    TurningRecorderSystem recorders{"Recorder", [this](const PrintEvent& e) { hear(e); }};
};

TEST_P(PageOverlapTest, NoTextStandsOverTextTheFrameOrTheEdge) {
    const LayoutCase& c = GetParam();
    std::string project = c.sample ? std::string(HLYD_SOURCE_DIR) + "/examples/Sample/Sample.vbp"
                                   : test::writeCrowdedProject(dir + "/crowded");
    openFileForRun(project);
    PrintRunRequest request;
    request.startPage = std::max(c.startPage, 1);
    PrintRunResult result = runPrint(request);
    ASSERT_EQ(result.printStatus, kPrintOk);
    // The case reaches what it is there for: Roman contents numbers past viii, page numbers
    // of three and four digits.
    EXPECT_TRUE(c.sample || mostContents > 8) << mostContents;
    EXPECT_TRUE(c.startPage == 0 || mostPrinted > c.startPage + 5) << mostPrinted;
    std::string faults = test::faultsOf(pages);
    EXPECT_TRUE(faults.empty()) << faults;
}

INSTANTIATE_TEST_SUITE_P(Layouts, PageOverlapTest, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<LayoutCase>& info) { return std::string(info.param.name); });

// The crowded project through the program's own PDF printer, read back word by word: no word over
// another, none within a quarter inch of the sheet's edge, and none in the footing's lines but the
// footing's own.
TEST(PdfPageOverlapTest, TheCrowdedProjectPrintedToPdfKeepsItsTextApart) {
#ifndef HLYD_HALYARD
    GTEST_SKIP() << "built without the window layer: there is no program to print with";
#else
    namespace fs = std::filesystem;
    if (!fs::exists(HLYD_HALYARD) || test::run("command -v pdftotext").empty())
        GTEST_SKIP() << "the program or pdftotext is missing: the PDF cannot be made or read back";
    fs::path work = fs::temp_directory_path() / ("hlyd-pdf-overlap-" + std::to_string(::getpid()));
    std::string project = test::writeCrowdedProject(work.string());
    constexpr double kEdge = 18;
    const std::vector<std::string> footingWords = {"Listed",  "by", "Halyard", "Visual", "Basic",
                                                   "source,", "as", "it",      "stands"};
    for (int orientation : {1, 2}) {
        std::ofstream(work / "HLYD.INI") << "[General]\r\nTableOfContents=Yes\r\nProcContents=Yes\r\nOrientation="
                                         << orientation << "\r\n";
        std::string pdf = (work / ("Crowded" + std::to_string(orientation) + ".pdf")).string();
        test::run("HLYD_CONFIG_DIR='" + work.string() + "' '" HLYD_HALYARD "' --quiet --pdf '" + pdf + "' '" + project +
                  "' 2>&1");
        std::vector<test::PageText> pages = test::pdfWords(pdf);
        ASSERT_GT(pages.size(), 20u) << pdf;
        for (test::PageText& page : pages) {
            page.name = (orientation == 2 ? "landscape " : "portrait ") + page.name;
            page.width -= 2 * kEdge, page.height -= 2 * kEdge;
            const test::TextBox* listed = nullptr;
            for (test::TextBox& b : page.boxes) {
                b.x0 -= kEdge, b.x1 -= kEdge, b.y0 -= kEdge, b.y1 -= kEdge;
                if (b.text == "Listed") listed = &b;
            }
            // The footing's two lines begin with the line of "Listed".
            double top = listed ? listed->y0 : page.height, bottom = listed ? top + 2 * (listed->y1 - top) : top;
            if (listed) page.bands = {{top, bottom}};
            for (test::TextBox& b : page.boxes)
                b.frame = b.y0 >= top - 0.5 && b.y1 <= bottom + 0.5 &&
                          std::find(footingWords.begin(), footingWords.end(), b.text) != footingWords.end();
        }
        std::string faults = test::faultsOf(pages);
        EXPECT_TRUE(faults.empty()) << faults;
    }
    fs::remove_all(work);
#endif
}

}  // namespace
}  // namespace hlyd
