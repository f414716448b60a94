#include "models/print_dialog_model.h"

#include <algorithm>
#include <cctype>

#include "base/app_info.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "files/file_table.h"
#include "files/print_history.h"
#include "printing/print_state.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

const char* const kNoProcedures = "You must select procedures to print before Halyard can print";
const char* const kNoFiles = "You must select files to print before Halyard can print";
const char* const kNothingNewer = "There are no files that have been changed since last Halyard";
const char* const kBadPageNumber = "You must define a valid page number before Halyard can print";

bool currentIsProject() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return false;
    return f.oFile.Item(f.wCurrentFile).FileType != kFileSource;
}

int viewOf(bool code, bool formDef) {
    if (code && formDef) return kViewBoth;
    if (code) return kViewCodeOnly;
    return formDef ? kViewFormDefOnly : kViewNeither;
}

std::string selectionLine() {
    const PrintState& p = printState();
    auto count = std::count_if(p.SelectedProcs.begin(), p.SelectedProcs.end(), [](std::int16_t s) { return s != 0; });
    if (!p.ProcsSelected || count == 0) return "Entire file selected.";
    return std::to_string(count) + " Procs selected.";
}

void clearSelections() {
    PrintState& p = printState();
    p.ProcsSelected = false;
    p.SelectedProcs.assign(yProc().size(), 0);
    FileCollection& files = oFile();
    for (int i = 1; i <= files.Count(); ++i) files.Item(i).IsSelected = false;
}

void clearChoices(PrintDialogModel& m) {
    m.chkCurrent = false;
    m.chkAll = {};
    m.optSelectedProcedures = {};
}

void refuse(const char* text) { showMessage(text, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning); }

bool anyProcedureSelected() {
    const PrintState& p = printState();
    return p.ProcsSelected &&
           std::any_of(p.SelectedProcs.begin(), p.SelectedProcs.end(), [](std::int16_t s) { return s != 0; });
}

bool anyFileSelected() {
    FileCollection& files = oFile();
    for (int i = 1; i <= files.Count(); ++i)
        if (files.Item(i).IsSelected) return true;
    return false;
}

// A file that cannot be asked for its time is left out of the newer files rather than failing OK.
bool newerOrFalse(const std::string& name) {
    try {
        return fbIsNewer(name);
    } catch (const HlydError&) {
        return false;
    }
}

bool markNewerFiles() {
    FileCollection& files = oFile();
    bool any = false;
    for (int i = 1; i <= files.Count(); ++i) {
        cFileDesc& file = files.Item(i);
        file.IsSelected = newerOrFalse(file.FileName);
        any = any || file.IsSelected;
    }
    return any;
}

bool isPageNumber(const std::string& text) {
    auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return false;
    auto last = text.find_last_not_of(' ');
    std::string digits = text.substr(first, last - first + 1);
    return digits.size() <= 9 &&
           std::all_of(digits.begin(), digits.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// The first page field that holds no number, empty when all do.
std::string badPageField(const PrintDialogModel& m) {
    if (!isPageNumber(m.txtPageNumberStart)) return "txtPageNumberStart";
    if (!m.optPageRange) return "";
    for (int i = 0; i < 2; ++i)
        if (!isPageNumber(m.txtPageRange[i])) return "txtPageRange" + std::to_string(i);
    return "";
}

}  // namespace

const std::vector<std::pair<std::string, std::string>>& printDialogCaptions() {
    static const std::vector<std::pair<std::string, std::string>> captions = {
            {"HLYDPrint", "Print"},
            {"fraView", "Print What"},
            {"optView0", "&Form Definition Only"},
            {"optView1", "C&ode Only"},
            {"optView2", "&Both "},
            {"optView3", "&Neither"},
            {"chkSkipAttributes", "S&kip Attributes"},
            {"chkTOC", "Tab&le of Contents"},
            {"chkXref", "Cross-Reference of Na&mes"},
            {"chkProcContents", "P&rocedure Table of Contents"},
            {"lblPageNumberStart", "S&tarting Page Number"},
            {"fraHeading", "Optional A&dditional Heading Line"},
            {"lblPrinter", "Name of current printer"},
            {"cmdSelectPrinter", "S&elect Printer..."},
            {"cmdOptions", "Options..."},
            {"fraPrintWhat", "Print "},
            {"chkCurrent", "&Current File"},
            {"chkAll0", "&All Files"},
            {"chkAll1", "Ne&wer Files"},
            {"optSelectedProcedures0", "&Selected Files"},
            {"optSelectedProcedures1", "Selected &Procedures"},
            {"optPageRange", "Pa&ges"},
            {"chkPrintContinuous", "Pr&int Continuous"},
            {"chkDontUpdate", "Do Not &Update History"},
            {"chkDontShow", "Don't Show Again"},
            {"cmdOK", "OK"},
            {"cmdCancel", "Cancel"},
            {"cmdHelp", "&Help"},
    };
    return captions;
}

void fillPrintDialog(PrintDialogModel& m) {
    const PrintState& p = printState();
    const HlydSettings& s = hlydSettings();
    m.lblPrinter = "Printer: " + (p.PrinterName.empty() ? std::string("None selected") : p.PrinterName);
    m.projectShown = currentIsProject();
    m.lblProcs = m.projectShown ? "All files selected" : selectionLine();
    clearSelections();
    m.chkSkipAttributes = displayAttributes().Format[kPrint].SkipAttributes != 0;
    m.chkTOC = s.TableOfContents;
    m.chkXref = s.CrossReference;
    m.chkProcContents = s.ProcContentsPrint;
    m.chkPrintContinuous = s.PrintContinuous;
    m.optView = viewOf(s.ViewCode[kPrint], s.ViewFormDef[kPrint]);
    m.txtHeading = s.OptionalHeading;
    clearChoices(m);
    // Whoever prints a project or group wants its members on paper, not only the few lines of
    // the project file: All Files is the choice that OK takes at once. Current File still prints
    // the listing alone.
    if (m.projectShown) m.chkAll[0] = true;
    else m.chkCurrent = true;
}

void chkCurrent_Click(PrintDialogModel& m) {
    if (!m.chkCurrent) return;
    clearChoices(m);
    m.chkCurrent = true;
    m.lblProcs = "Current file selected";
}

void chkAll_Click(PrintDialogModel& m, int index) {
    if (!m.chkAll[index]) return;
    clearChoices(m);
    m.chkAll[index] = true;
    m.lblProcs = "All files selected";
}

void optSelectedProcedures_Click(PrintDialogModel& m, int index) {
    clearChoices(m);
    m.optSelectedProcedures[index] = true;
    m.lblProcs = index == kSelectFiles ? "Selected Files" : "Selected Procedures from current file selected";
}

void optPageRange_Click(PrintDialogModel& m) { m.txtPageRangeEnabled = m.optPageRange; }

bool acceptsPageKey(char key) { return std::isdigit(static_cast<unsigned char>(key)) != 0; }

bool cmdOK_Click(PrintDialogModel& m) {
    // The wish not to see the dialog again holds even when OK is refused.
    if (m.chkDontShow) hlydSettings().DoNotShowPrintDialog = true;
    m.focus.clear();
    if (m.optSelectedProcedures[kSelectProcedures] && !anyProcedureSelected()) {
        refuse(kNoProcedures);
        return false;
    }
    if (m.optSelectedProcedures[kSelectFiles] && !anyFileSelected()) {
        refuse(kNoFiles);
        return false;
    }
    if (m.chkAll[1] && !markNewerFiles()) {
        refuse(kNothingNewer);
        return false;
    }
    m.focus = badPageField(m);
    if (m.focus.empty()) return true;
    refuse(kBadPageNumber);
    return false;
}

}  // namespace hlyd
