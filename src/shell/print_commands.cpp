#include "shell/print_commands.h"

#include "base/app_info.h"
#include "base/message_box.h"
#include "display/command_states.h"
#include "files/cut_reports.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "shell/print_dialog.h"
#include "shell/print_options.h"
#include "printing/print_request.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

const char* const kFontsUnsuitable =
        "Invalid font(s) selected for the chosen printer -- \r\n"
        "Halyard's Printing functions are disabled.\r\n"
        "In order to print either select different fonts using \r\n"
        "View Print Option/Fonts or choose a different printer with File/Print \r\n"
        "Setup or install the desired font(s).";

std::string shownFileName() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return "";
    return f.oFile.Item(f.wCurrentFile).FileName;
}

bool shownFileIsSource() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return false;
    return f.oFile.Item(f.wCurrentFile).FileType == kFileSource;
}

// lblStatus names the file while its print command runs; what the command says of its end stays,
// and so does what a limit left out of the print.
class PrintingStatus {
public:
    PrintingStatus() : text_("Printing " + shownFileName()), cutsBefore_(cutsTold()) { mainWindow().lblStatus = text_; }
    ~PrintingStatus() {
        if (cutsTold() != cutsBefore_) mainWindow().lblStatus = lastCut();
        else if (mainWindow().lblStatus == text_) mainWindow().lblStatus.clear();
    }
    PrintingStatus(const PrintingStatus&) = delete;
    PrintingStatus& operator=(const PrintingStatus&) = delete;

private:
    std::string text_;
    int cutsBefore_;
};

}  // namespace

void sbPrintButtonSet(bool tellFonts) {
    const PrintState& p = printState();
    bool canPrint = p.PrinterPresent && p.PrinterValid && !p.PrintingInProgress;
    bool fileOpen = oFile().Count() > 0;
    setButtonAndMenu(kTbrPrint, kMnuFilPrint, canPrint && fileOpen);
    setCommand(kTbrPrintThisProcedure, canPrint && shownFileIsSource() && mainWindow().cboProc.ListIndex >= 0);
    setCommand(kMnuFilPrintSetup, !p.PrintingInProgress);
    if (tellFonts && p.PrinterPresent && !p.PrinterValid) showMessage(kFontsUnsuitable, theAppInfo().Title);
}

void mnuFilPrint_Click() {
    {
        PrintingStatus status;
        HlydPRProcessPrintRequest(HlydHLYDPrintProcessDialog);
    }
    sbPrintButtonSet();
}

void mnuFilPrintSetup_Click() {
    HlydPAProcessSetupRequest(true);
    sbPrintButtonSet(true);
}

void tbrPrintThisProcedure_Click() {
    {
        PrintingStatus status;
        printThisProcedure();
    }
    sbPrintButtonSet();
}

void mnuOptionsPrint_Click() {
    // New fonts may not suit the printer: the print commands follow at once.
    if (HlydPOShowPrintOptions()) sbPrintButtonSet(true);
}

}  // namespace hlyd
