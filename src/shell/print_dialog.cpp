#include "shell/print_dialog.h"

#include <optional>

#include "base/c_log.h"
#include "files/file_table.h"
#include "files/print_history.h"
#include "platform/views.h"

namespace hlyd {

namespace {

bool changedSincePrinted(const std::string& name) {
    try {
        return bIsNewer(name);
    } catch (const std::exception&) {
        return false;
    }
}

void chooseFiles(const PrintDialogModel& m, PrintDialogRequest& r) {
    FileCollection& files = oFile();
    if (m.chkAll[0] || m.chkAll[1]) {
        r.AllFiles = kPrintAllFiles;
        for (int i = 1; i <= files.Count(); ++i)
            files.Item(i).IsSelected = m.chkAll[0] || changedSincePrinted(files.Item(i).FileName);
        return;
    }
    if (m.optSelectedProcedures[kSelectFiles]) {
        int selected = 0;
        for (int i = 1; i <= files.Count(); ++i) selected += files.Item(i).IsSelected ? 1 : 0;
        r.AllFiles = selected < files.Count() ? kPrintSomeFiles : kPrintAllFiles;
        return;
    }
    r.AllFiles = kPrintCurrentFile;
    r.ProcsSelected = m.optSelectedProcedures[kSelectProcedures];
}

void setView(int view, PrintDialogRequest& r) {
    r.Code = view == kViewBoth || view == kViewCodeOnly;
    r.FormDef = view == kViewBoth || view == kViewFormDefOnly;
}

std::int32_t pageValue(const std::string& text) { return text.empty() ? 0 : std::stoi(text); }

void readDialog(const PrintDialogModel& m, PrintDialogRequest& r) {
    r.PageRange = m.optPageRange;
    if (r.PageRange) {
        r.FirstPage = pageValue(m.txtPageRange[0]);
        r.LastPage = pageValue(m.txtPageRange[1]);
    }
    r.NoHistory = m.chkDontUpdate;
    r.PrintContinuous = m.chkPrintContinuous;
    chooseFiles(m, r);
    r.SkipAttributes = m.chkSkipAttributes;
    r.ProcContents = m.chkProcContents;
    r.TableOfContents = m.chkTOC;
    r.CrossReference = m.chkXref;
    r.PrintedPageNumber = pageValue(m.txtPageNumberStart) - 1;
    setView(m.optView, r);
    r.OptionalLine = m.txtHeading;
    // Neither code nor form of the current file: what is left to print is its procedure table.
    r.ContentsOnly = !r.Code && !r.FormDef && r.AllFiles == kPrintCurrentFile && r.ProcContents;
}

const char* yesNo(bool on) { return on ? "True" : "False"; }

void logRequest(const PrintDialogRequest& r) {
    cLog& log = theLog();
    log.LogData("AllFiles=" + std::to_string(r.AllFiles) + " PrintProcContents=" + yesNo(r.ProcContents) +
                " ProcSelected=" + yesNo(r.ProcsSelected) + " HeadingOptions...");
    log.LogData("  OptionalLine=<" + r.OptionalLine + ">");
}

bool showDialog(PrintDialogModel& m) {
    if (std::optional<bool> accepted = theViews().showPrintDialog(m)) return *accepted;
    return cmdOK_Click(m);
}

}  // namespace

bool HlydHLYDPrintProcessDialog(PrintDialogRequest& request) {
    PrintDialogModel m;
    fillPrintDialog(m);
    if (!showDialog(m)) return false;
    readDialog(m, request);
    logRequest(request);
    return true;
}

}  // namespace hlyd
