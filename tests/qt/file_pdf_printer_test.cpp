// The PDF printer without Qt draws what the Qt printer draws, byte for byte, from what the Qt
// printer remembered of the faces; its sheets are the page layout's to the last bit; and what it
// cannot answer as the Qt printer would, it refuses instead of guessing.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "platform/pdf/face_files.h"
#include "platform/pdf/file_pdf_printer.h"
#include "platform/qt/classic_paper.h"
#include "platform/qt/qt_printer_adapter.h"
#include "test_support.h"

namespace hlyd {
namespace {

struct QtSheet : QtPrinter {
    using QtPrinter::sheet;
};

std::string sheetText(const PrintSheet& s) {
    std::ostringstream out;
    out.precision(17);
    out << s.fullWidth << ' ' << s.fullHeight << ' ' << s.paintLeft << ' ' << s.paintTop << ' ' << s.paintWidth << ' '
        << s.paintHeight << ' ' << s.fullWidthPixels << ' ' << s.fullHeightPixels << ' ' << s.paintLeftPixels << ' '
        << s.paintTopPixels << ' ' << s.landscape;
    return out.str();
}

TEST(FilePdfPrinterSheet, IsThePageLayoutsForEveryPaperAndOrientation) {
    std::vector<std::int32_t> codes = classicPaperCodes();
    codes.push_back(999);  // unknown: Letter
    for (std::int32_t code : codes)
        for (bool landscape : {false, true}) {
            QtSheet qt;
            ASSERT_EQ(qt.setJobProperty(JobProperty::PaperSize, code), 0);
            ASSERT_EQ(qt.setJobProperty(JobProperty::Orientation, landscape ? 2 : 1), 0);
            EXPECT_EQ(sheetText(pdfPrinterSheet(code, landscape, QtPrinter::kPdfDotsPerInch)), sheetText(qt.sheet()))
                    << "paper " << code << (landscape ? " landscape" : " portrait");
        }
}

std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

class FilePdfPrinterTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        test::ConfigDirTest::SetUp();
        loadFaceFiles(dir + "/face-files");  // none yet: the Qt printer remembers what it finds
    }
    void TearDown() override {
        forgetFaceFiles();
        test::ConfigDirTest::TearDown();
    }
    // Two documents of tokens in several faces, colours and sizes, lines and boxes, the marks of a
    // reader's way, a landscape page: as a listing prints.
    static void printJob(Printer& p, const std::string& path) {
        ASSERT_TRUE(p.beginJob(path)) << p.jobError();
        float y = 0;
        p.setPageLabel(1, 1);
        p.nameDestination("main", 0, "Main.bas", 0);
        for (const char* line : {"Dim caf\xe9 As String ' note", "End Sub", "x = \"lit\" & 1.5"}) {
            p.setCurrentY(y);
            p.setCurrentX(360);
            std::istringstream words(line);
            for (std::string w; words >> w;) {
                bool keyword = w == "Dim" || w == "As" || w == "End" || w == "Sub";
                p.setFontName(keyword ? "Arial" : w[0] == '\'' ? "Times New Roman" : "Courier New");
                p.setFontBold(keyword);
                p.setFontItalic(w[0] == '\'');
                p.setFontUnderline(w[0] == '"');
                p.setFontStrikethrough(w == "1.5");
                p.setFontSize(keyword ? 11 : 10);
                p.setForeColor(keyword ? 0x00800000u : w[0] == '\'' ? 0x00008000u : 0);
                p.print(w);
                p.print(" ");
            }
            y += p.textHeight("X");
        }
        p.linkTo(360, 0, 2000, 200, "main");
        p.line(360, y, 9000, y, 0x00C0C0C0u);
        p.filledBox(360, y + 100, 2000, y + 300, 0x00E0E0E0u);
        ASSERT_EQ(p.setJobProperty(JobProperty::Orientation, 2), 0);
        p.newPage();
        p.setPageLabel(2, 1);
        p.printMark("\xbb");
        p.printStandingFor("^I", "\t");
        p.endDoc();
        p.print("second document");
        ASSERT_TRUE(p.endJob(true)) << p.jobError();
    }
};

TEST_F(FilePdfPrinterTest, WritesTheQtPrintersFileFromTheFacesItRemembered) {
    QtPrinter qt;
    printJob(qt, dir + "/qt.pdf");
    FilePdfPrinter onCore;
    printJob(onCore, dir + "/core.pdf");
    std::string expected = contentOf(dir + "/qt.pdf");
    ASSERT_FALSE(expected.empty());
    EXPECT_TRUE(contentOf(dir + "/core.pdf") == expected) << "the files differ";
}

TEST_F(FilePdfPrinterTest, RefusesWhatOnlyTheToolkitCanAnswer) {
    EXPECT_THROW(FilePdfPrinter(), FacesUnanswered) << "nothing remembered yet";
    QtPrinter qt;
    qt.setFontName("Courier New");
    qt.textWidth("x");  // the family and its regular face are remembered now
    FilePdfPrinter p;
    EXPECT_GT(p.textWidth("x"), 0);
    EXPECT_THROW(p.fonts(), FacesUnanswered);
    EXPECT_THROW(p.setFontName("No Such Font Anywhere"), FacesUnanswered);
    p.setFontBold(true);  // a face the Qt printer never looked up
    EXPECT_THROW(p.textWidth("x"), FacesUnanswered);
    p.setFontBold(false);
    ASSERT_TRUE(p.beginJob(dir + "/palette.pdf"));
    p.setForeColor(0x80000008u);  // the system palette's window text
    EXPECT_THROW(p.print("x"), FacesUnanswered);
    p.endJob(false);
}

}  // namespace
}  // namespace hlyd
