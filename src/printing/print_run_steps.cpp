#include "printing/print_run_steps.h"

#include "base/app_info.h"
#include "base/message_box.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/contents.h"
#include "printing/cross_reference.h"
#include "printing/line_pages.h"
#include "printing/print_file.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// Loads the file at `which`; false when it could not be read (it has then left the table).
bool loadForPrinting(int which, PrintRunResult& result) {
    FileTableModule& files = fileTable();
    std::string name = files.oFile.Item(which).FileName;
    int count = files.oFile.Count();
    showPrintStatus(name + "\r\n\r\nInitializing");
    HlydFLProcessSelectedFile(static_cast<std::int16_t>(which));
    if (files.oFile.Count() == count) return true;
    result.skipped.push_back(name);
    return false;
}

}  // namespace

bool printerReadyForRun(PrintRunResult& result) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    if (!printer || !p.PrinterValid || fileTable().oFile.Count() == 0) {
        result.written = false;
        result.error = printer ? "Printing is disabled." : "There is no printer.";
        return false;
    }
    if (p.AreaError == kAreaOk) return true;
    result.written = false;
    result.error =
            "The margins and columns in force leave no room to print on the page of " + printer->deviceName() + ".";
    showMessage(result.error + "\nChoose other margins or fewer columns in the print options.", theAppInfo().Title,
                MsgButtons::OK, MsgIcon::Warning);
    return false;
}

bool beginRun(const std::string& outputPath, PrintRunResult& result) {
    PrintState& p = printState();
    resetTOC();
    beginNotingPages(hlydSettings().CrossReference);
    p.PrintStatus = kPrintOk;
    p.Stop = StopKind::DropsJob;
    p.StopAsked = false;
    p.DocumentDropped = false;
    // Every run numbers its lines from the increment, whatever the start setting says.
    p.CurrentLineNumber = hlydSettings().LineNumberIncrement;
    Printer* printer = currentPrinter();
    if (!printer->beginJob(outputPath)) {
        // A file that cannot be made is known now: hours of pages would only end in the same failure.
        printer->endJob(false);
        result.written = false;
        result.error = printer->jobError();
        return false;
    }
    result.pagesAtStart = printer->pagesDelivered();
    HlydPRInit();
    return true;
}

void printWantedFiles(const std::function<bool(int which)>& wanted, bool firstOnly,
                      const std::function<void()>& onLoaded, PrintRunResult& result,
                      const std::function<void(const std::string& file)>& fileBegins) {
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    for (int i = 1; i <= files.oFile.Count() && p.PrintStatus != kPrintStopped;) {
        if (!wanted(i)) {
            ++i;
            continue;
        }
        if (hlydSettings().LineNumberHow == 2) p.CurrentLineNumber = hlydSettings().LineNumberIncrement;
        if (fileBegins) fileBegins(files.oFile.Item(i).FileName);
        if (!loadForPrinting(i, result)) continue;
        files.wCurrentFile = static_cast<std::int16_t>(i);
        onLoaded();
        wPos pos;
        HlydPRProcessCodeOrProjectFile(pos);
        if (firstOnly) break;
        ++i;
    }
}

void endRun(PrintRunResult& result) {
    PrintState& p = printState();
    Printer* printer = currentPrinter();
    wPos pos;
    // The names are indexed before the contents, which leave the project as the file in hand.
    bool crossReference = p.PrintStatus != kPrintStopped && hlydSettings().CrossReference;
    std::vector<XrefEntry> entries = crossReference ? gatherCrossReference() : std::vector<XrefEntry>{};
    std::int32_t contentsPages = 0;
    if (p.PrintStatus != kPrintStopped && hlydSettings().TableOfContents) {
        duplexPadding(false);
        contentsPages = EmitTOC(pos);
    }
    if (crossReference && p.PrintStatus != kPrintStopped) {
        duplexPadding(false);
        EmitCrossReference(pos, entries, contentsPages);
    }
    if (hlydSettings().PrintContinuous) printer->endDoc();
    result.printStatus = p.PrintStatus;
    // The pages of a range are the document; a stop the user asked for keeps what was done.
    result.written = printer->endJob(p.PrintStatus != kPrintStopped || p.Stop != StopKind::DropsJob);
    if (!result.written) result.error = printer->jobError();
    result.pages = printer->pagesDelivered() - result.pagesAtStart;
}

void showFileAgain(std::int16_t shown) {
    FileTableModule& files = fileTable();
    if (shown >= 1 && shown <= files.oFile.Count() && shown != files.wCurrentFile) HlydFLProcessSelectedFile(shown);
}

}  // namespace hlyd
