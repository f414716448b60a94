#pragma once
// The Print dialog (HLYDPrint) as a plain model: its controls, what a click does to the others,
// and the checks of OK. The window's form binds to it; the tests drive it directly.
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace hlyd {

// optView, in the order of its buttons.
constexpr int kViewFormDefOnly = 0;
constexpr int kViewCodeOnly = 1;
constexpr int kViewBoth = 2;
constexpr int kViewNeither = 3;

// The two choices of optSelectedProcedures and of cmdSelect.
constexpr int kSelectFiles = 0;
constexpr int kSelectProcedures = 1;

struct PrintDialogModel {
    std::string lblPrinter;
    std::string lblProcs;
    std::string lblReading;
    int optView = kViewBoth;
    bool chkSkipAttributes = false;
    bool chkTOC = false;
    bool chkXref = false;
    bool chkProcContents = false;
    std::string txtPageNumberStart = "1";
    std::string txtHeading;
    bool chkCurrent = true;
    std::array<bool, 2> chkAll{};                 // All Files, Newer Files
    std::array<bool, 2> optSelectedProcedures{};  // Selected Files, Selected Procedures
    bool optPageRange = false;
    std::array<std::string, 2> txtPageRange{};  // from, to
    bool txtPageRangeEnabled = false;
    bool chkPrintContinuous = false;
    bool chkDontUpdate = false;
    bool chkDontShow = false;
    bool projectShown = false;  // a project or group is shown: it has no procedures to choose
    std::string focus;          // the field that OK refused, to be focused with its text selected
};

// Every control's name and caption ("&" marks the access key), the frames and labels included.
const std::vector<std::pair<std::string, std::string>>& printDialogCaptions();

// "Printer: " and the printer, the selection line, and the controls as the settings have them.
void fillPrintDialog(PrintDialogModel& m);

// The choices of "Print " exclude each other. Each handler runs after the click has set its control.
void chkCurrent_Click(PrintDialogModel& m);
void chkAll_Click(PrintDialogModel& m, int index);
void optSelectedProcedures_Click(PrintDialogModel& m, int index);
// The Pages option enables its two fields.
void optPageRange_Click(PrintDialogModel& m);
// The page fields take digits only.
bool acceptsPageKey(char key);

// The checks of OK, in order; the first that fails tells the user and keeps the dialog open (false).
bool cmdOK_Click(PrintDialogModel& m);

}  // namespace hlyd
