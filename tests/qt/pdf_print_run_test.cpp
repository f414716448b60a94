// Print runs that end early on the PDF printer: the file they leave is a whole PDF of the pages
// they were meant to keep, read back with poppler's tools.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "platform/qt/qt_printer_system.h"
#include "base/message_box.h"
#include "printing/print_request.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd {
namespace {

using test::run;

bool havePoppler() {
    return std::system("command -v pdftotext >/dev/null 2>&1 && command -v pdfinfo >/dev/null 2>&1") == 0;
}

class PdfPrintRunTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        HlydSettings& s = hlydSettings();
        s.HeadingLeft = "<Listing page>;@page";
        s.HeadingCenter = s.HeadingRight = "";
        s.FootingLeft = s.FootingCenter = s.FootingRight = "";
        s.SaveHYInfo = false;
        s.TableOfContents = false;
        s.ProcContentsPrint = false;
        s.PrintContinuous = false;
        s.CurrentPrinter = kPdfPrinterName;
        setPrinterSystem(&pdfPrinters);
        InitPrinter();
    }
    void TearDown() override {
        resetPrintState();
        setPrinterSystem(nullptr);
        ProgramTest::TearDown();
    }

    QtPrinterSystem pdfPrinters;
};

// The pages of a range are the document: a PDF of those pages alone, with their own numbers.
TEST_F(PdfPrintRunTest, APageRangeWritesAPdfOfItsPages) {
    if (!havePoppler()) GTEST_SKIP() << "poppler-utils is not installed: the PDF cannot be read back";
    showSource("module.bas", test::procedures(1, 300));
    PrintRunRequest request;
    request.pageRange = true;
    request.firstPage = 2;
    request.lastPage = 3;
    request.outputPath = dir + "/range.pdf";
    PrintRunResult result = runPrint(request);
    ASSERT_TRUE(result.written) << result.error;
    std::string info = run("pdfinfo '" + request.outputPath + "' 2>&1");
    EXPECT_NE(info.find("Pages:           2"), std::string::npos) << info;
    EXPECT_EQ(info.find("Error"), std::string::npos) << info;
    std::string text = run("pdftotext '" + request.outputPath + "' -");
    EXPECT_EQ(text.find("Listing page 1\n"), std::string::npos);
    EXPECT_NE(text.find("Listing page 2\n"), std::string::npos);
    EXPECT_NE(text.find("Listing page 3\n"), std::string::npos);
    EXPECT_EQ(text.find("Listing page 4\n"), std::string::npos);
}

// A stop the user confirms leaves the pages printed before it as a PDF that readers open.
TEST_F(PdfPrintRunTest, AConfirmedStopLeavesAWholePdfOfThePagesBeforeIt) {
    if (!havePoppler()) GTEST_SKIP() << "poppler-utils is not installed: the PDF cannot be read back";
    showSource("module.bas", test::procedures(1, 300));
    ui.answers = {MsgAnswer::Yes};
    test::TestViews views;
    views.statusChanged = [](const std::string& text) {
        if (text.rfind("Now Printing Page 3", 0) == 0) stopPrinting();
    };
    PrintRunRequest request;
    request.outputPath = dir + "/stopped.pdf";
    PrintRunResult result = runPrint(request);
    EXPECT_EQ(result.printStatus, kPrintStopped);
    ASSERT_TRUE(result.written) << result.error;
    std::string info = run("pdfinfo '" + request.outputPath + "' 2>&1");
    EXPECT_EQ(info.find("Error"), std::string::npos) << info;
    std::string text = run("pdftotext '" + request.outputPath + "' - 2>&1");
    EXPECT_NE(text.find("Listing page 1\n"), std::string::npos);
    EXPECT_NE(text.find("Listing page 2\n"), std::string::npos);
    EXPECT_EQ(text.find("Listing page 4\n"), std::string::npos);
    EXPECT_EQ(text.find("Error"), std::string::npos);
}

}  // namespace
}  // namespace hlyd
