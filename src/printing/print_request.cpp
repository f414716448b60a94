#include "printing/print_request.h"

#include "base/app_info.h"
#include "base/message_box.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/output_guard.h"
#include "files/run_inputs.h"
#include "files/status_progress.h"
#include "printing/print_file.h"
#include "printing/print_output.h"
#include "printing/print_run_steps.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// What the dialog may change for one run only; it all returns when the command ends, however
// it ends.
class KeptForRun {
public:
    KeptForRun() : area_(printState().UsableArea) {
        const HlydSettings& s = hlydSettings();
        procContents_ = s.ProcContentsPrint;
        tableOfContents_ = s.TableOfContents;
        crossReference_ = s.CrossReference;
        printContinuous_ = s.PrintContinuous;
    }
    ~KeptForRun() { putBack(); }
    void putBack() const {
        HlydSettings& s = hlydSettings();
        AreaRecord& area = printState().UsableArea;
        area.Bottom = area_.Bottom;
        area.Height = area_.Height;
        area.Right = area_.Right;
        area.Width = area_.Width;
        s.ProcContentsPrint = procContents_;
        s.TableOfContents = tableOfContents_;
        s.CrossReference = crossReference_;
        s.PrintContinuous = printContinuous_;
    }

private:
    AreaRecord area_;
    bool procContents_ = false;
    bool tableOfContents_ = false;
    bool crossReference_ = false;
    bool printContinuous_ = false;
};

// The window takes no input and the status dialog shows while the run goes on; both end with
// the run, also when it stops or fails.
class RunFence {
public:
    RunFence() {
        mainWindow().disableControls();
        openPrintStatus();
    }
    ~RunFence() {
        mainWindow().enableControls();
        closePrintStatus();
    }
};

// The lasting choices of the dialog go into the settings. The choices for this run only reach
// the settings after this save, and leave them when the command ends.
void saveLastingChoices(const PrintDialogRequest& r) {
    HlydSettings& s = hlydSettings();
    s.OptionalHeading = r.OptionalLine;
    s.ViewCode[kPrint] = r.Code;
    s.ViewFormDef[kPrint] = r.FormDef;
    displayAttributes().Format[kPrint].SkipAttributes = r.SkipAttributes ? 1 : 0;
    sbPrintINISave();
}

void takeRequest(const PrintDialogRequest& r) {
    HlydSettings& s = hlydSettings();
    PrintState& p = printState();
    s.ProcContentsPrint = r.ProcContents;
    s.TableOfContents = r.TableOfContents;
    s.CrossReference = r.CrossReference;
    s.PrintContinuous = r.PrintContinuous;
    p.PageRange = r.PageRange;
    p.FirstPage = r.FirstPage;
    p.LastPage = r.LastPage;
    p.PrintedPageNumber = r.PrintedPageNumber;
    p.NoHistory = r.NoHistory;
    p.OptionalLine = r.OptionalLine;
    p.Code = r.Code;
    p.FormDef = r.FormDef;
    p.ProcsSelected = r.ProcsSelected;
}

void printContentsOnly() {
    const FileTableModule& f = fileTable();
    if (f.oFile.Item(f.wCurrentFile).FileType == kFileSource) HlydPRProcessProcContentsRequest();
    else HlydPRProcessProjectProcContentsRequest();
}

void printChosenFiles(const PrintDialogRequest& r, PrintRunResult& result) {
    int current = fileTable().wCurrentFile;
    bool currentOnly = r.AllFiles == kPrintCurrentFile;
    auto wanted = [currentOnly, current](int which) {
        return currentOnly ? which >= current : oFile().Item(which).IsSelected;
    };
    // The selection of procedures belongs to the current file alone.
    auto onLoaded = [currentOnly] {
        if (!currentOnly) printState().ProcsSelected = false;
    };
    printWantedFiles(wanted, currentOnly, onLoaded, result);
}

// A job that the printer could not take: a printer that failed (or went away since it was set
// up) is given up until the user sets one up again; a file printer that could not write its file
// only says why, since another place may do. A job the user stopped is no failure.
void tellFailedJob(const PrintRunResult& result, const std::string& outputPath) {
    if (result.written || result.printStatus == kPrintStopped) return;
    if (!outputPath.empty()) {
        if (!result.error.empty()) showMessage(result.error, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
        return;
    }
    const FileTableModule& f = fileTable();
    std::string file =
            f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count() ? f.oFile.Item(f.wCurrentFile).FileName : "";
    printState().PrinterValid = false;
    showMessage("A problem has been detected in printing " + file +
                        "\r\nHalyard's Printing functions are disabled.\r\n"
                        "In order to print choose the Printer with File/Print Setup\r\n"
                        "Then, set fonts using the Print Options dialog.",
                theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

// The PDF chosen and the print history are checked before the first page: a name that would
// write over a file of the user's refuses the whole command, and nothing is changed.
bool outputsAllowed(const PrintDialogRequest& r, const std::string& outputPath) {
    std::vector<OutputTarget> targets;
    if (!outputPath.empty()) targets.push_back({outputPath, OutputKind::Pdf, "the Print to PDF dialog"});
    if (std::optional<OutputTarget> history = historyOutput(); history && !r.NoHistory) targets.push_back(*history);
    std::string refusal = outputsRefusal(targets, inputsOfThisRun());
    if (refusal.empty()) return true;
    showMessage(theAppInfo().Title + " " + refusal, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
    return false;
}

// A stop the user asked for ends the job with the pages done so far, a whole document of its own;
// the status says where they are, since the listing is shorter than the file.
void tellStoppedJob(const PrintRunResult& result, const std::string& outputPath) {
    if (result.printStatus != kPrintStopped || printState().Stop != StopKind::UserStop) return;
    std::string where = outputPath.empty() ? std::string() : " in " + outputPath;
    mainWindow().lblStatus = result.written
                                     ? "Printing stopped: the pages printed before the stop are kept" + where + "."
                                     : "Printing stopped: nothing was printed.";
}

void tellCancelled() { mainWindow().lblStatus = "Cancelled"; }

// What a finished job left and where: the PDF's file or the printer's name.
void tellFinishedJob(const PrintRunResult& result, const std::string& outputPath) {
    const PrintState& p = printState();
    // The status dialog's Cancel drops the job; a printer that failed has said so in a box.
    if (result.printStatus == kPrintStopped && p.Stop == StopKind::DropsJob && p.PrinterValid) return tellCancelled();
    // A stop the user asked for has its own line, from tellStoppedJob.
    if (!result.written || (result.printStatus == kPrintStopped && p.Stop == StopKind::UserStop)) return;
    Printer* printer = currentPrinter();
    std::string where = !outputPath.empty() ? outputPath : printer ? printer->deviceName() : std::string();
    mainWindow().lblStatus =
            "Printed " + groupedNumber(result.pages) + (result.pages == 1 ? " page" : " pages") + " to " + where;
}

void runRequest(const PrintDialogRequest& r, const std::string& outputPath) {
    PrintRunResult result;
    if (!printerReadyForRun(result) || !outputsAllowed(r, outputPath)) return;
    std::int16_t shown = fileTable().wCurrentFile;
    RunFence fence;
    if (beginRun(outputPath, result)) {
        takeRequest(r);
        if (r.ContentsOnly) printContentsOnly();
        else printChosenFiles(r, result);
        endRun(result);
        showFileAgain(shown);
    }
    tellFailedJob(result, outputPath);
    tellStoppedJob(result, outputPath);
    tellFinishedJob(result, outputPath);
}

}  // namespace

void HlydPRProcessPrintRequest(const PrintDialogStep& askUser) {
    if (oFile().Count() == 0) return;
    KeptForRun kept;
    PrintDialogRequest request = requestFromSettings();
    if (!hlydSettings().DoNotShowPrintDialog && !askUser(request)) return tellCancelled();
    std::string outputPath;
    if (!askPrintOutputPath(outputPath)) return tellCancelled();
    saveLastingChoices(request);
    runRequest(request, outputPath);
}

void printThisProcedure() {
    const FileTableModule& f = fileTable();
    int shownProc = mainWindow().cboProc.ListIndex;
    if (f.oFile.Count() == 0 || shownProc < 0) return;
    KeptForRun kept;
    PrintDialogRequest request = requestFromSettings();
    PrintState& p = printState();
    p.SelectedProcs.assign(yProc().size(), 0);
    for (std::size_t e = 0; e < yProc().size(); ++e)
        if (yProc()[e].ListIndex == shownProc) p.SelectedProcs[e] = 1;
    request.ProcsSelected = true;
    std::string outputPath;
    if (askPrintOutputPath(outputPath)) runRequest(request, outputPath);
    else tellCancelled();
}

void stopPrinting() {
    MsgAnswer answer =
            showMessage("Are you sure you want to stop?", theAppInfo().Title, MsgButtons::YesNo, MsgIcon::Question);
    if (answer != MsgAnswer::Yes) return;
    // The stop lands at the next page change rather than at once: the page in progress is then
    // finished, and the document kept holds whole pages only, never one with just its heading.
    printState().StopAsked = true;
}

}  // namespace hlyd
