// The print options without a window, on the recording printer (US Letter, 12240 x 15840 twips,
// offsets of a quarter inch): every check with its message, what OK does to the page and to the
// settings file, and what closing without OK leaves alone.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/app_info.h"
#include "models/print_options_checks.h"
#include "shell/print_options.h"
#include "models/print_options_fonts.h"
#include "models/print_options_macros.h"
#include "models/print_options_model.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

class PrintOptionsTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        fillPrintOptions(m);
    }
    // The check's verdict and the message it left.
    template <class Check>
    std::string refusal(Check check) {
        EXPECT_FALSE(check());
        EXPECT_EQ(m.PrintStatus, 4);
        return m.lblMessage;
    }

    PrintOptionsModel m;
};

TEST_F(PrintOptionsTest, FormShowsTheSettingsInTheUsersUnitsAndTheColumnWidthTheMarginsLeave) {
    EXPECT_EQ(m.fraMargins, "Margins (Inches)");
    EXPECT_EQ(m.fraColumns, "Columns (Inches)");
    EXPECT_EQ(m.v.txtMargin[kMarginLeft], "1");
    EXPECT_EQ(m.v.txtMargin[kMarginTop], "0.5");
    EXPECT_EQ(m.v.txtWidth, "7");  // 12240 - 1440 - 720 twips
    EXPECT_FALSE(m.txtSpacingEnabled);
    EXPECT_EQ(m.lblPrinter, "Printer: Recorder");
    EXPECT_EQ(m.lblMessage, "");
    EXPECT_FALSE(printOptionsChanged(m));

    hlydSettings().MetricUnits = true;
    fillPrintOptions(m);
    EXPECT_EQ(m.fraMargins, "Margins (Centimeters)");
    EXPECT_EQ(m.fraColumns, "Columns (Centimeters)");
    EXPECT_EQ(m.v.txtMargin[kMarginLeft], "2.54");

    // Settings whose margins leave no page still open the form, which says so.
    pageSettings().Margins.Left = 11000;
    fillPrintOptions(m);
    EXPECT_EQ(m.lblMessage, "Unable to use initial Margins for calculating Column-data'");
}

TEST_F(PrintOptionsTest, ColumnsSpacingAndWidthAreCheckedInTwips) {
    m.v.txtColumns = "two";
    EXPECT_EQ(refusal([&] { return sbValidateNumberOfCol(m); }), "Number of Columns contains an invalid value.");
    EXPECT_EQ(m.focus, "txtColumns");
    m.v.txtColumns = "0";
    EXPECT_EQ(refusal([&] { return sbValidateNumberOfCol(m); }), "Invalid number of columns");
    m.v.txtColumns = "2";
    EXPECT_TRUE(sbValidateNumberOfCol(m));
    EXPECT_EQ(m.lblMessage, "");
    EXPECT_TRUE(m.txtSpacingEnabled);
    EXPECT_EQ(m.v.txtWidth, "3.25");  // (10080 - 720) / 2

    m.v.txtSpacing = "0.0618";  // 89 twips
    EXPECT_EQ(refusal([&] { return sbPageLayoutValidateColSpecs(m, "SPACING"); }), "Column Spacing too small.");
    m.v.txtSpacing = "0.0625";
    EXPECT_TRUE(sbPageLayoutValidateColSpecs(m, "SPACING"));
    EXPECT_EQ(m.columns.Gutter, 90);
    EXPECT_EQ(m.columns.Width, 4995);                   // (10080 - 90) / 2
    for (const char* text : {"23", "-999999999999"}) {  // 23 inches are 33120 twips
        m.v.txtSpacing = text;
        EXPECT_EQ(refusal([&] { return sbPageLayoutValidateColSpecs(m, "SPACING"); }),
                  "Spacing contains an invalid value.");
    }

    m.v.txtWidth = "0.49";
    EXPECT_EQ(refusal([&] { return sbPageLayoutValidateColSpecs(m, "WIDTH"); }), "Column Width too small.");
    m.v.txtWidth = "0.5";
    EXPECT_TRUE(sbPageLayoutValidateColSpecs(m, "WIDTH"));
    EXPECT_EQ(m.columns.Width, 720);

    hlydSettings().MetricUnits = true;
    m.v.txtWidth = "1.27";
    EXPECT_TRUE(sbPageLayoutValidateColSpecs(m, "WIDTH"));
    EXPECT_EQ(m.columns.Width, 720);
}

TEST_F(PrintOptionsTest, MarginsAreWholeUnitsNoSmallerThanThePrintersStripAndMustLeaveRoom) {
    m.v.txtMargin[kMarginLeft] = "abc";
    EXPECT_EQ(refusal([&] { return sbPageLayoutValidateMargin(m, "LEFT"); }), "Left contains an invalid value.");
    EXPECT_EQ(m.focus, "txtMargin2");
    for (const char* text : {"-1", "-0.4", "999999999999"}) {
        m.v.txtMargin[kMarginRight] = text;
        EXPECT_EQ(refusal([&] { return sbPageLayoutValidateMargin(m, "RIGHT"); }), "Right contains an invalid value.");
    }

    // One inch of width left is just enough.
    m.v.txtMargin[kMarginLeft] = m.v.txtMargin[kMarginRight] = "3.75";
    EXPECT_TRUE(sbPageLayoutValidateMargin(m, "LEFT"));
    EXPECT_TRUE(sbPageLayoutValidateMargin(m, "RIGHT"));
    EXPECT_TRUE(sbValidateBounds(m));
    EXPECT_EQ(m.v.txtWidth, "1");
    m.v.txtMargin[kMarginRight] = "3.76";
    EXPECT_TRUE(sbPageLayoutValidateMargin(m, "RIGHT"));
    EXPECT_EQ(refusal([&] { return sbValidateBounds(m); }), "Left/Right Margins too large.");
    EXPECT_EQ(printState().PrintStatus, 0);  // the geometry in force is untouched
    m.v.txtMargin[kMarginRight] = "1";
    m.v.txtMargin[kMarginTop] = m.v.txtMargin[kMarginBottom] = "5.5";
    for (const char* which : {"RIGHT", "TOP", "BOTTOM"}) EXPECT_TRUE(sbPageLayoutValidateMargin(m, which));
    EXPECT_EQ(refusal([&] { return sbValidateBounds(m); }), "Top/Bottom Margins too large.");

    // In centimetres the printer's strip of 0.635 cm counts as a whole one.
    hlydSettings().MetricUnits = true;
    m.v.txtMargin[kMarginTop] = "0.4";
    EXPECT_EQ(refusal([&] { return sbPageLayoutValidateMargin(m, "TOP"); }), "Top contains an invalid value.");
    m.v.txtMargin[kMarginTop] = "1.27";
    EXPECT_TRUE(sbPageLayoutValidateMargin(m, "TOP"));
    EXPECT_EQ(m.margins.Top, 720);
}

TEST_F(PrintOptionsTest, LineNumbersAndFormatNumbersHaveTheirRanges) {
    EXPECT_TRUE(acceptsLineNumberKey('7'));
    EXPECT_TRUE(acceptsLineNumberKey('\b'));
    EXPECT_FALSE(acceptsLineNumberKey('a'));
    EXPECT_FALSE(acceptsLineNumberKey('-'));
    m.v.txtLineNumberIncrement = "100";
    EXPECT_TRUE(validateLineNumberIncrement(m));
    m.v.txtLineNumberIncrement = "101";
    EXPECT_EQ(refusal([&] { return validateLineNumberIncrement(m); }), "Increment must be between 1 and 100");
    m.v.txtLineNumberStart = "0";
    EXPECT_EQ(refusal([&] { return validateLineNumberStart(m); }), "Starting line number must be between 1 and 1000");
    m.v.txtLineNumberStart = "1000";
    EXPECT_TRUE(validateLineNumberStart(m));
    m.v.txtOrphan = "11";
    EXPECT_EQ(refusal([&] { return validateFormatNumbers(m); }), "Orphan lines must be between 1 and 10");
}

TEST_F(PrintOptionsTest, MacroButtonsInsertAtTheCursorOfTheFocusedSection) {
    const std::vector<std::string>& captions = macroButtonCaptions();
    ASSERT_EQ(captions.size(), 15u);
    EXPECT_EQ(captions[0], "< >");
    EXPECT_EQ(captions[9], "@Path< >");
    EXPECT_EQ(captions[14], "|");
    EXPECT_STREQ(macroButtonTip(3), "Print the page number");
    EXPECT_STREQ(macroButtonTip(14), "Line Separator. '|', the pipe symbol will denote the next line");
    EXPECT_EQ(macroStripHint().find("Select a Header or Footer Section, Then click on the desired button. \n"), 0u);

    EXPECT_FALSE(insertMacro(m, 1));  // no section has the focus
    m.focusedSection = 3;
    m.v.txtHeading[3] = "@User";
    m.cursor = 0;
    EXPECT_TRUE(insertMacro(m, 1));
    EXPECT_TRUE(insertMacro(m, 3));
    EXPECT_EQ(m.v.txtHeading[3], "@Date; @Page; @User");
    EXPECT_TRUE(printOptionsChanged(m));
}

TEST_F(PrintOptionsTest, AnUnknownFieldInATemplateIsRefusedAndLiteralsPass) {
    m.v.txtHeading[1] = "<Page >; @Pgae";
    EXPECT_EQ(refusal([&] { return validateHeadingTemplates(m); }),
              "Header Center has an unknown field @Pgae. Enclose text to be printed as it stands in < >.");
    EXPECT_EQ(m.focus, "txtHeading1");
    m.v.txtHeading[1] = "<@home>; plain; @PATH<20>;| @page";
    EXPECT_TRUE(validateHeadingTemplates(m));
}

TEST_F(PrintOptionsTest, AFontThePrinterLacksIsRefusedAndWhatItCannotDoIsMended) {
    m.v.fonts[kElemKeyWords].Name = "Nonesuch Sans";
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_EQ(m.lblMessage,
              "KeyWords: The selected printer (Windows default printer) -- Recorder -- does not support Nonesuch Sans");
    m.v.fonts[kElemKeyWords].Name = "Arial";
    m.v.fonts[kElemComments].Size = 150;
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_EQ(m.lblMessage, "Comments: Font-size specified as150. Maximum allowed is 100 which is what will be used.");
    EXPECT_EQ(m.v.fonts[kElemComments].Size, 100);
    EXPECT_TRUE(cmdOK_Click(m));
    EXPECT_NE(test::settingsFileText().find("FontName.KeyWords=Arial"), std::string::npos);
}

TEST_F(PrintOptionsTest, OkAppliesThePageAndWritesTheSettingsRefusalAndCancelWriteNothing) {
    std::string before = test::settingsFileText();
    m.v.txtMargin[kMarginLeft] = "8";
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_EQ(m.lblMessage, "Left/Right Margins too large.");
    EXPECT_EQ(test::settingsFileText(), before);
    EXPECT_EQ(pageSettings().Margins.Left, 1440);

    // Closing with changes asks; Cancel keeps the form, No leaves without a word written.
    ui.answers = {MsgAnswer::Cancel, MsgAnswer::No};
    EXPECT_FALSE(Form_QueryUnload(m));
    EXPECT_EQ(ui.shown.back().text, "Do You Want to Save Your Options?");
    EXPECT_EQ(ui.shown.back().title, "Save Options");
    EXPECT_TRUE(Form_QueryUnload(m));
    EXPECT_EQ(test::settingsFileText(), before);

    m.v.txtMargin[kMarginLeft] = "1.5";
    m.v.txtColumns = "2";
    m.v.optProcSkip = 'C';
    m.v.txtHeading[0] = "@FileName";
    EXPECT_TRUE(cmdOK_Click(m));
    EXPECT_EQ(pageSettings().Margins.Left, 2160);
    EXPECT_EQ(printState().Columns.Columns, 2);
    EXPECT_EQ(printState().UsableArea.Left, 2160 - 360);
    std::string after = test::settingsFileText();
    for (const char* line : {"Margins=720 2160 720 720", "Columns=2", "ProcSkip.Print=C", "HeadingLeft=@FileName"})
        EXPECT_NE(after.find(line), std::string::npos) << line;
    EXPECT_FALSE(printOptionsChanged(m));
}

// The message of a font the printer lacks sends the user here: fonts that suit give printing back.
TEST_F(PrintOptionsTest, FontsThatSuitThePrinterGivePrintingBack) {
    AttributeRecord& keywords = displayAttributes().Elements[kElemKeyWords].slot[kPrint];
    keywords.FontName = keywords.Font.Name = "Nonesuch Sans";
    InitPrinter();
    ASSERT_FALSE(printState().PrinterValid);
    fillPrintOptions(m);
    m.v.fonts[kElemKeyWords].Name = "Courier New";
    EXPECT_TRUE(cmdOK_Click(m)) << m.lblMessage;
    EXPECT_TRUE(printState().PrinterValid);
}

// The start told the user that the printer is gone; the options still open, and save.
TEST_F(PrintOptionsTest, APrinterThatIsGoneLeavesTheOptionsWorking) {
    hlydSettings().CurrentPrinter = "Gone";
    resetPrintState();
    setPrinterSystem(&printers);
    InitPrinter();
    fillPrintOptions(m);
    EXPECT_EQ(m.lblPrinter,
              "No printer is in force: margins and fonts are checked against the printer chosen with File/Print "
              "Setup.");
    m.v.txtLineNumberIncrement = "5";
    EXPECT_TRUE(cmdOK_Click(m)) << m.lblMessage;
    EXPECT_NE(test::settingsFileText().find("LineNumberIncrement=5"), std::string::npos);
}

TEST_F(PrintOptionsTest, HistoryFileButtonOffersTheDefaultNameInTheFolder) {
    m.v.txtSaveHYFile = "/data/hist/TMRHIST.TMR";
    ui.saveAnswer = "/data/hist/MINE.TMR";
    cmdHistoryFile_Click(m);
    ASSERT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(ui.dialogs[0].title, "Select Halyard Save File");
    EXPECT_EQ(ui.dialogs[0].filter, "AllFile|*.*");
    EXPECT_EQ(ui.dialogs[0].fileName, "/data/hist/HYHIST.TMR");
    EXPECT_EQ(m.v.txtSaveHYFile, "/data/hist/MINE.TMR");
}

}  // namespace
}  // namespace hlyd
