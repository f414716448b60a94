// The printer's setup on the recording printer: its figures, the usable area, the fonts and their
// metrics, and the paths of a machine whose printer will not do or that has none.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "base/c_log.h"
#include "display/font_metrics.h"
#include "platform/printer.h"
#include "printing/job_properties.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "printing/printer_info.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/usable_area.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "test_support.h"

namespace hlyd {
namespace {

// A recording printer that offers other fonts than its own, or none.
class FontListPrinter : public RecordingPrinter {
public:
    FontListPrinter(const std::string& name, std::vector<std::string> fonts)
        : RecordingPrinter(name, {}), fonts_(std::move(fonts)) {}
    std::vector<std::string> fonts() const override { return fonts_; }

private:
    std::vector<std::string> fonts_;
};

class FontListSystem : public RecordingPrinterSystem {
public:
    FontListSystem(const std::string& name, std::vector<std::string> fonts)
        : RecordingPrinterSystem(name), fonts_(std::move(fonts)) {}
    std::unique_ptr<Printer> open(const std::string& wanted) override {
        if (wanted != name()) return nullptr;
        return std::make_unique<FontListPrinter>(name(), fonts_);
    }

private:
    std::vector<std::string> fonts_;
};

class PrinterSetupTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        setPrinterSystem(&recorder);
        loadSettingsAtStartup();
        theLog().LogOpen(logPath(), 1);
    }
    std::string logPath() const { return dir + "/setup.log"; }
    std::string readLog() {
        theLog().LogClose();
        std::ifstream in(logPath(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    AttributeRecord& printFont(int element) { return displayAttributes().Elements[element].slot[kPrint]; }
    PrintState& state() { return printState(); }
    // The texts of the boxes shown, in order.
    std::vector<std::string> shown() const {
        std::vector<std::string> texts;
        for (const MessageBoxRequest& r : ui.shown) texts.push_back(r.text);
        return texts;
    }
    // The usable area of the margins on the recording printer, as the setup computes it.
    void layOut(const MarginRecord& margins, ColumnSpec& columns) {
        HlydPASetUsableArea(state().UsableArea, state().DefaultArea, margins, columns);
    }

    RecordingPrinterSystem recorder{"Recorder"};
};

const std::string kNoFontDisabled =
        "Halyard's Printing functions are disabled.\nIn order to print either select different fonts using Option/Fonts or "
        "\nchoose a different printer with File/Print Setup or \ninstall the desired font(s).";

TEST(PrinterInfoTest, FiguresComeFromTheDeviceInTwipsInchesAndWholeCentimetres) {
    RecordingPrinter printer("Recorder", {});
    cPrinterInfo info(printer.caps());
    // 150 pixels at 600 per inch.
    EXPECT_EQ(info.XOffset(), 360);
    EXPECT_EQ(info.YOffset(), 360);
    EXPECT_EQ(info.PageLeft(), 360);
    EXPECT_EQ(info.PageTop(), 360);
    EXPECT_EQ(info.XOffsetIN(), 0);
    EXPECT_EQ(info.XOffsetMM(), 1);  // 0.635 cm
    // The far strip is taken as half as wide again: 15840 - 540, 12240 - 540.
    EXPECT_FLOAT_EQ(info.PageBottom(), 15300);
    EXPECT_FLOAT_EQ(info.PageRight(), 11700);

    cPrinterInfo edgeless(PrinterCaps{5100, 6600, 0, 0, 600, 600});
    EXPECT_FLOAT_EQ(edgeless.PageBottom(), 15840);
    EXPECT_FLOAT_EQ(edgeless.PageRight(), 12240);

    // 1.5 inches, 3.81 cm: a half goes to the even number.
    cPrinterInfo wide(PrinterCaps{5100, 6600, 900, 300, 600, 600});
    EXPECT_EQ(wide.XOffset(), 2160);
    EXPECT_EQ(wide.XOffsetIN(), 2);
    EXPECT_EQ(wide.XOffsetMM(), 4);
    EXPECT_EQ(wide.YOffsetIN(), 0);
    EXPECT_EQ(wide.YOffsetMM(), 1);
}

TEST_F(PrinterSetupTest, StartOnTheRecordingPrinterMeasuresFontsAndLaysOutThePage) {
    EXPECT_EQ(hlydSettings().CurrentPrinter, "Recorder");  // the system's default
    InitPrinter();
    EXPECT_TRUE(ui.shown.empty()) << ui.shown.front().text;
    ASSERT_NE(currentPrinter(), nullptr);
    EXPECT_EQ(state().PrinterName, "Recorder");
    EXPECT_TRUE(state().PrinterPresent);
    EXPECT_TRUE(state().PrinterValid);
    EXPECT_EQ(state().PrintStatus, kPrintOk);

    const AreaRecord& d = state().DefaultArea;
    EXPECT_EQ(d.Left, 0);
    EXPECT_EQ(d.Top, 0);
    EXPECT_EQ(d.Width, 11520);
    EXPECT_EQ(d.Height, 15120);
    EXPECT_EQ(d.Right, 11520);
    EXPECT_EQ(d.Bottom, 15120);

    // Margins 360 720 720 360 less the strips of 360; the last line begins one line above the
    // bottom margin.
    const AreaRecord& u = state().UsableArea;
    EXPECT_EQ(u.Top, 0);
    EXPECT_EQ(u.Bottom, 15300 - 0 - 240);
    EXPECT_EQ(u.Left, 360);
    EXPECT_EQ(u.Right, 11340);
    EXPECT_EQ(u.Width, 10800);
    EXPECT_EQ(u.Height, 15120);
    EXPECT_EQ(state().SavedTop, 0);
    EXPECT_EQ(state().SavedBottom, u.Bottom);
    EXPECT_EQ(state().Columns.Width, 10800);

    // 10-point Courier New: every character 120 twips, a line 240; the heading's 8 points.
    const LayoutMetrics& m = layoutMetrics();
    for (int e = 1; e <= kElementCount; ++e) {
        std::int32_t size = e == kElemHeadersFooters ? 8 : 10;
        EXPECT_EQ(printFont(e).Height, 24 * size) << e;
        EXPECT_EQ(printFont(e).XWidth, 12 * size) << e;
        EXPECT_EQ(printFont(e).SpaceWidth, 12 * size) << e;
    }
    EXPECT_EQ(m.MaxFontHeight[kPrint], 240);
    EXPECT_EQ(m.WhiteSpaceSize[kPrint], 102);  // 6 x 120 / 7
    EXPECT_EQ(m.ConnectorSize[kPrint], 102);
    EXPECT_EQ(m.IndentSize[kPrint], 102);
    EXPECT_EQ(m.ContinueSize[kPrint], 240);
    EXPECT_EQ(m.PrintTwipsPerPixelY, 2);
    EXPECT_EQ(m.TwipsPerPixelY, 15);  // the screen's stay
    EXPECT_EQ(state().LineNumberWidth, 840);
    EXPECT_NE(readLog().find("PrinterFonts=3"), std::string::npos);
}

TEST_F(PrinterSetupTest, MarginsOutsideThePageAndColumns) {
    InitPrinter();
    ColumnSpec columns;
    const MarginRecord bound{720, 1440, 720, 720};
    MarginRecord negativeTop = bound;
    negativeTop.Top = -100;
    layOut(negativeTop, columns);
    EXPECT_EQ(state().UsableArea.Top, 360);  // the first line at the strip, not above the page
    EXPECT_EQ(state().UsableArea.Height, 15840 + 100 - 720);

    // 3 columns of 10080 with gutters of 720; halves go to the even twip.
    columns.Columns = 3;
    layOut(bound, columns);
    EXPECT_EQ(columns.Width, 2880);
    columns.Columns = 2;
    columns.Gutter = 721;
    layOut(bound, columns);
    EXPECT_EQ(columns.Width, 4680);  // 4679.5
    columns.Gutter = 723;
    layOut(bound, columns);
    EXPECT_EQ(columns.Width, 4678);  // 4678.5

    columns.Columns = 1;
    MarginRecord narrow;
    narrow.Left = 6000;
    narrow.Right = 5000;  // 1240 twips left: less than an inch, more than a centimetre
    layOut(narrow, columns);
    EXPECT_EQ(state().AreaError, kAreaTooNarrow);
    EXPECT_EQ(state().PrintStatus, kPrintMarginsOutside);
    hlydSettings().MetricUnits = true;
    layOut(narrow, columns);
    EXPECT_EQ(state().AreaError, kAreaOk);
    EXPECT_EQ(state().PrintStatus, kPrintOk);
    MarginRecord short_;
    short_.Top = 7000;
    short_.Bottom = 8300;  // 540 twips high
    layOut(short_, columns);
    EXPECT_EQ(state().AreaError, kAreaTooShort);
    EXPECT_EQ(state().PrintStatus, kPrintMarginsOutside);
}

TEST_F(PrinterSetupTest, SetupRefusesMarginsThatDoNotFitAndKeepsThem) {
    InitPrinter();
    pageSettings().Margins.Left = 6000;
    pageSettings().Margins.Right = 5000;
    HlydPAProcessSetupRequest(false);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text,
              "Current Printer-margins are not within the bounds of the selected Printer.\nThey are being ignored.");
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Warning);
    EXPECT_EQ(state().UsableArea.Left, state().DefaultArea.Left);
    EXPECT_EQ(state().UsableArea.Width, state().DefaultArea.Width);
    EXPECT_EQ(pageSettings().Margins.Left, 6000);
    EXPECT_NE(readLog().find("=====>\nCurrent Printer-margins are not within"), std::string::npos);
}

TEST_F(PrinterSetupTest, FontSizesAreMendedAndAFontThePrinterLacksDisablesPrinting) {
    printFont(kElemComments).Font.Size = 0;
    printFont(kElemIdentifiers).Font.Size = 100.5;
    InitPrinter();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text, "Font-size specified as100.5. Maximum allowed is 100 which is what will be used.");
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Warning);
    EXPECT_EQ(printFont(kElemComments).Font.Size, 12);
    EXPECT_EQ(printFont(kElemIdentifiers).Font.Size, 100);
    EXPECT_TRUE(state().PrinterValid);

    ui.shown.clear();
    AttributeRecord& keywords = printFont(kElemKeyWords);
    keywords.FontName = keywords.Font.Name = "Wingdings";
    bool success = true;
    HlydPAValidateFont(keywords, keywords.FontName, true, success);
    EXPECT_FALSE(success);
    EXPECT_FALSE(state().PrinterValid);
    EXPECT_EQ(
            shown(),
            (std::vector<std::string>{
                    "The selected printer (Windows default printer) -- \nRecorder\n -- does not support font \nWingdings",
                    kNoFontDisabled}));

    // Quietly, the start only says that printing is off; and the check agrees.
    ui.shown.clear();
    EXPECT_FALSE(HlydPACheckIfValid());
    EXPECT_EQ(shown(),
              (std::vector<std::string>{
                      kNoFontDisabled,
                      "The Fonts currently selected are not valid for Recorder\nHalyard's Printing functions are "
                      "disabled.\nIn order to print either select different fonts using Option/Fonts or \ninstall "
                      "the desired font(s)."}));
    EXPECT_NE(readLog().find("PrinterValid=False"), std::string::npos);
}

TEST_F(PrinterSetupTest, AnEmptyFontNameTakesTheDefaultPrintFont) {
    InitPrinter();
    AttributeRecord& comments = printFont(kElemComments);
    comments.FontName.clear();
    comments.Font.Name.clear();
    comments.Font.Size = 30;
    bool success = false;
    HlydPAValidateFont(comments, comments.FontName, true, success);
    EXPECT_TRUE(success);
    EXPECT_EQ(comments.Font.Name, "Courier New");
    EXPECT_EQ(comments.Font.Size, 12);
    EXPECT_TRUE(ui.shown.empty());
}

TEST_F(PrinterSetupTest, DefaultPrintFontPrefersCourierOverArial) {
    FontListSystem arialFirst("Recorder", {"Arial", "Symbol", "courier"});
    setPrinterSystem(&arialFirst);
    InitPrinter();
    EXPECT_EQ(GetDefaultPrintFont(), "courier");
    FontListSystem arialOnly("Recorder", {"Symbol", "ARIAL"});
    setPrinterSystem(&arialOnly);
    InitPrinter();
    EXPECT_EQ(GetDefaultPrintFont(), "ARIAL");
}

TEST_F(PrinterSetupTest, APrinterWithNoFontsDisablesPrinting) {
    FontListSystem fontless("Recorder", {});
    setPrinterSystem(&fontless);
    InitPrinter();
    EXPECT_EQ(GetDefaultPrintFont(), "");
    EXPECT_FALSE(state().PrinterValid);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text,
              "There are no fonts defined for the printer (Recorder).\nPrinting and related functions disabled until a "
              "Printer is selected.");
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Warning);
    EXPECT_NE(readLog().find("PrinterFonts=0"), std::string::npos);
}

TEST_F(PrinterSetupTest, NoPrinterAtAllDisablesPrintingWithOneMessage) {
    const std::string told =
            "No default Printer specified.\nUse Windows Print Manager to set the default Printer.\nPrinting and related "
            "functions disabled.\nIn order to Print you will have to \n1) use Windows Print Manager to select the "
            "\ndefault Printer\n2) select File / Print Setup";
    NoPrinterSystem none;
    for (PrinterSystem* system : {static_cast<PrinterSystem*>(&none), static_cast<PrinterSystem*>(nullptr)}) {
        resetPrintState();
        ui.shown.clear();
        setPrinterSystem(system);
        InitPrinter();
        EXPECT_EQ(shown(), std::vector<std::string>{told});
        EXPECT_EQ(currentPrinter(), nullptr);
        EXPECT_TRUE(state().NoDefaultPrinter);
        EXPECT_FALSE(state().PrinterPresent);
        EXPECT_FALSE(state().PrinterValid);
        EXPECT_EQ(hlydSettings().CurrentPrinter, "Recorder");  // the user's choice is kept
    }
    ui.shown.clear();
    HlydPAProcessSetupRequest(false);
    EXPECT_EQ(shown(), std::vector<std::string>{"No default Printer defined."});
}

TEST_F(PrinterSetupTest, APrinterTheSystemDoesNotKnowIsInvalidAndToldOnce) {
    hlydSettings().CurrentPrinter = "Ghost";
    InitPrinter();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].title, "Invalid printer");
    EXPECT_EQ(ui.shown[0].text,
              "The printer Ghost is not a valid printer!\n\nHalyard's Printing functions are disabled.\nIn order to "
              "print choose a valid Printer with File/Print Setup.");
    EXPECT_EQ(hlydSettings().CurrentPrinter, "Recorder");  // the default printer is in force
    ASSERT_NE(currentPrinter(), nullptr);
    EXPECT_FALSE(state().PrinterPresent);
    EXPECT_FALSE(state().PrinterValid);
    hlydSettings().CurrentPrinter = "Ghost";
    InitPrinter();
    EXPECT_EQ(ui.shown.size(), 1u);
}

TEST_F(PrinterSetupTest, ThePrinterDialogSetsTheJobAndARefusedOrientationFollowsThePrinter) {
    hlydSettings().CurrentPrinter = "Ghost";
    InitPrinter();
    ui.shown.clear();
    ui.answerPrinterDialog = [](PrinterDialogRequest& request) {
        request.Orientation = 3;  // no such orientation: the printer keeps its own
        request.Copies = 4;
        request.Duplex = 2;  // the recording printer prints on one side only
        return true;
    };
    HlydPAProcessSetupRequest(true);
    ASSERT_EQ(ui.printerDialogs.size(), 1u);
    EXPECT_EQ(ui.printerDialogs[0].printers, std::vector<std::string>{"Recorder"});
    EXPECT_EQ(ui.printerDialogs[0].printer, "Recorder");
    EXPECT_EQ(hlydSettings().Orientation, 1);
    EXPECT_EQ(hlydSettings().Copies, 4);
    EXPECT_EQ(currentPrinter()->jobProperty(JobProperty::Copies), 4);
    EXPECT_EQ(shown(),
              std::vector<std::string>{
                      "The follow error occurred during Printer-setup:\nPrinter driver does not support specified "
                      "property"});
    // A new setup is a new chance.
    EXPECT_TRUE(state().PrinterPresent);
    EXPECT_TRUE(state().PrinterValid);
    EXPECT_EQ(state().UsableArea.Left, 360);

    // A cancelled dialog changes nothing, and the job's refusals are no news at each print.
    ui.shown.clear();
    ui.answerPrinterDialog = nullptr;
    HlydPAProcessSetupRequest(true);
    EXPECT_EQ(hlydSettings().Copies, 4);
    SetPrinterProp();
    EXPECT_TRUE(ui.shown.empty());
    std::string log = readLog();
    EXPECT_NE(log.find("SetPrinterProp::Orientation=1 CDLG Orientation=1"), std::string::npos);
    EXPECT_NE(log.find("Duplex=2 CDLG Duplex=1"), std::string::npos);
}

TEST_F(PrinterSetupTest, TheStartSetsUpThePrinterBeforeTheKeywords) {
    InitApp();
    EXPECT_TRUE(ui.shown.empty()) << ui.shown.front().text;
    EXPECT_TRUE(state().PrinterValid);
    EXPECT_EQ(layoutMetrics().WhiteSpaceSize[kPrint], 102);
}

}  // namespace
}  // namespace hlyd
