#include "printing/print_run.h"

#include "base/app_info.h"
#include "base/message_box.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/contents.h"
#include "printing/page_change.h"
#include "printing/print_file.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

void prepareRun(const PrintRunRequest& request) {
    PrintState& p = printState();
    const HlydSettings& s = hlydSettings();
    resetTOC();
    p.PrintStatus = kPrintOk;
    p.CurrentLineNumber = s.LineNumberIncrement;
    p.PageRange = request.pageRange;
    p.FirstPage = request.firstPage;
    p.LastPage = request.lastPage;
    p.PrintedPageNumber = request.startPage - 1;
    p.OptionalLine = request.optionalLine;
    p.Code = s.ViewCode[2];
    p.FormDef = s.ViewFormDef[2];
}

// The procedures chosen by name, in the file now loaded.
void selectProcedures(const std::vector<std::string>& names) {
    PrintState& p = printState();
    const std::vector<ProcEntry>& procs = yProc();
    p.SelectedProcs.assign(procs.size(), 0);
    p.ProcsSelected = !names.empty();
    for (std::size_t e = 0; e < procs.size(); ++e)
        for (const std::string& name : names)
            if (procs[e].Name == name) p.SelectedProcs[e] = 1;
}

// Loads the file at `which`; false when it could not be read (it has then left the table).
bool loadForPrinting(int which, const PrintRunRequest& request, PrintRunResult& result) {
    FileTableModule& files = fileTable();
    std::string name = files.oFile.Item(which).FileName;
    int count = files.oFile.Count();
    if (request.fileBegins) request.fileBegins(name);
    showPrintStatus(name + "\r\n\r\nInitializing");
    HlydFLProcessSelectedFile(static_cast<std::int16_t>(which));
    if (files.oFile.Count() == count) return true;
    result.skipped.push_back(name);
    return false;
}

void printFiles(const PrintRunRequest& request, PrintRunResult& result) {
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    int first = request.allFiles ? 1 : files.wCurrentFile;
    for (int i = first; i <= files.oFile.Count() && p.PrintStatus != kPrintStopped;) {
        if (hlydSettings().LineNumberHow == 2) p.CurrentLineNumber = hlydSettings().LineNumberIncrement;
        if (request.sourcesOnly && files.oFile.Item(i).FileType != kFileSource) {
            ++i;
            continue;
        }
        if (!loadForPrinting(i, request, result)) continue;
        files.wCurrentFile = static_cast<std::int16_t>(i);
        selectProcedures(files.oFile.Item(i).FileType == kFileSource ? request.procNames : std::vector<std::string>{});
        wPos pos;
        HlydPRProcessCodeOrProjectFile(pos);
        if (!request.allFiles) break;
        ++i;
    }
}

}  // namespace

PrintRunResult runPrint(const PrintRunRequest& request) {
    PrintRunResult result;
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    if (!printer || !p.PrinterValid || files.oFile.Count() == 0) {
        result.written = false;
        result.error = printer ? "Printing is disabled." : "There is no printer.";
        return result;
    }
    if (p.AreaError != kAreaOk) {
        result.written = false;
        result.error = "The margins and columns in force leave no room to print on the page of " + printer->deviceName() +
                       ".";
        showMessage(result.error + "\nChoose other margins or fewer columns in the print options.", theAppInfo().Title,
                    MsgButtons::OK, MsgIcon::Warning);
        return result;
    }
    std::int16_t shown = files.wCurrentFile;
    prepareRun(request);
    printer->beginJob(request.outputPath);
    HlydPRInit();
    printFiles(request, result);
    wPos pos;
    if (p.PrintStatus != kPrintStopped && hlydSettings().TableOfContents) {
        duplexPadding(false);
        EmitTOC(pos);
    }
    if (hlydSettings().PrintContinuous) printer->endDoc();
    result.printStatus = p.PrintStatus;
    result.written = printer->endJob(p.PrintStatus != kPrintStopped);
    if (!result.written) result.error = printer->jobError();
    if (shown >= 1 && shown <= files.oFile.Count() && shown != files.wCurrentFile)
        HlydFLProcessSelectedFile(shown);
    return result;
}

}  // namespace hlyd
