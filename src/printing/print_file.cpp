#include "printing/print_file.h"

#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/print_history.h"
#include "platform/printer.h"
#include "printing/code_printing.h"
#include "printing/contents.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_status.h"
#include "printing/project_printing.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

void addFileToToc(const cFileDesc& file) {
    if (!hlydSettings().TableOfContents) return;
    if (TOC().size() > 1) addTocEntry(kTocBlank, "");
    addTocEntry(file.FileType == kFileSource ? kTocFile : kTocProject, file.FileName,
                fileDestination(fileTable().wCurrentFile));
}

// Contents printed on their own leave the area as the run found it.
class ContentsOnlyRun {
public:
    ContentsOnlyRun() : kept_(printState().UsableArea) {
        PrintState& p = printState();
        p.PageNumber = 0;
        p.ContentsOnly = true;
        showPrintStatus("Reading...");
        HlydPHInit(false);
        mainWindow().disableControls();
    }
    ~ContentsOnlyRun() {
        PrintState& p = printState();
        p.ContentsOnly = false;
        p.UsableArea = kept_;
        mainWindow().enableControls();
    }

private:
    AreaRecord kept_;
};

}  // namespace

void HlydPRInit() { printState().PrintingInProgress = false; }

void duplexPadding(bool keepPrinted) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    if (!printer || p.DocumentDropped || !printsBothSides(*printer) || p.PageNumber % 2 == 0) return;
    EmitFooting();
    printer->newPage();
    // The empty page must reach the paper, and gets its own footing at the document's end.
    printer->print("");
    p.FootingPrinted = false;
    ++p.PageNumber;
    if (!keepPrinted) ++p.PrintedPageNumber;
}

void endDocument() {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    if (!printer) return;
    // A Cancel has dropped the document already: its footing would only open a new one.
    if (p.DocumentDropped) {
        p.DocumentDropped = false;
        return;
    }
    if (!p.FootingPrinted && p.PageNumber != 0) EmitFooting();
    // A page range that begins past the end: every page made was before it, and none is kept.
    if (p.PageRange && p.PageNumber < p.FirstPage) {
        printer->killDoc();
        return;
    }
    // The next document's first page counts itself one on from here; counting the end of a
    // document as well would leave a page number out at every module under continuous numbering.
    if (hlydSettings().PrintContinuous) printer->newPage();
    else printer->endDoc();
}

void HlydPRProcessCodeOrProjectFile(wPos& pos) {
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    const cFileDesc& file = files.oFile.Item(files.wCurrentFile);
    p.PageNumber = 0;
    p.PrintingInProgress = true;
    HlydPHInit(false);
    SaveHYInfo(p.NoHistory);
    addFileToToc(file);
    bool source = file.FileType == kFileSource;
    if (!source) {
        files.sVBName.clear();
        EmitProjectFile(pos);
    } else if (!p.ProcsSelected) {
        if (!p.FormDef) showPrintStatus(file.FileName + "\r\n\r\nInitializing");
        EmitCodeFile(pos);
    } else {
        EmitCodeFileSelectedProcs(pos);
    }
    duplexPadding(p.PrintStatus == kPrintStopped);
    if (source && hlydSettings().ProcContentsPrint && p.PrintStatus != kPrintStopped) {
        EmitProcContentsForOneFile(pos, false);
        duplexPadding(p.PrintStatus == kPrintStopped);
    }
    if (!p.PrinterValid) {
        mainWindow().clearDisplay();
        p.PrintStatus = kPrintStopped;
    }
    endDocument();
    SetPrinterProp();
    p.PrintingInProgress = false;
}

void HlydPRProcessProcContentsRequest() {
    ContentsOnlyRun run;
    wPos pos;
    EmitProcContentsForOneFile(pos, false);
    endDocument();
    SetPrinterProp();
}

void HlydPRProcessProjectProcContentsRequest() {
    ContentsOnlyRun run;
    wPos pos;
    EmitProcContentsProject(pos);
    endDocument();
    SetPrinterProp();
}

}  // namespace hlyd
