#include "printing/code_printing.h"

#include <vector>

#include "display/connectors.h"
#include "display/font_metrics.h"
#include "display/token_layout.h"
#include "files/file_table.h"
#include "files/navigation.h"
#include "files/proc_list.h"
#include "files/main_window_model.h"
#include "platform/printer.h"
#include "printing/column_fonts.h"
#include "printing/columns.h"
#include "printing/contents.h"
#include "printing/line_pages.h"
#include "printing/job_properties.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr const char* kDeclarations = "<Declarations>";
constexpr const char* kDesignerObject = "(Designer Object Definition)";

// Walks the records of the current file onto paper; one walk for the whole file, another for the
// chosen procedures.
class CodeListing {
public:
    explicit CodeListing(wPos& pos);
    void wholeFile();
    void selectedProcs();

private:
    bool printRecord(std::int32_t record);
    bool wanted(std::int32_t record) const;
    bool breakBefore(std::int32_t record);
    void separator(std::int32_t record);
    void notePage(int entry);
    std::int32_t orphanLines(std::int32_t record, int entry, bool procStart) const;
    bool blankAt(std::int32_t record) const;
    bool atColumnTop() const { return p_.PageNumber > 0 && pos_.TopPos <= p_.Column.TopMostY; }
    void closeConnectors();

    wPos& pos_;
    const FormatRecord& f_;
    PrintState& p_;
    const SourceTables& t_;
    std::vector<int> entryOf_;        // by record: the procedure entry that starts there, or -1
    std::vector<int> declarationOf_;  // by record: the entry whose declaration it holds, or -1
    float numberSpace_ = 0;
    std::int32_t lastRecord_ = 0;
};

CodeListing::CodeListing(wPos& pos)
    : pos_(pos), f_(displayAttributes().Format[kPrint]), p_(printState()), t_(theSourceTables()) {
    SetPrinterProp();
    pos_.LeftPos = p_.UsableArea.Left + (f_.ConnectControls ? 2 * layoutMetrics().ConnectorSize[kPrint] : 0);
    numberSpace_ = hlydSettings().LineNumbers ? p_.LineNumberWidth : 0;
    planIndentation();
    const FileTableModule& files = fileTable();
    notePagesOfFile(files.oFile.Item(files.wCurrentFile).FileName, t_.RecordCount);
    entryOf_.assign(static_cast<std::size_t>(t_.RecordCount) + 2, -1);
    declarationOf_ = entryOf_;
    std::vector<ProcEntry>& procs = yProc();
    for (ProcEntry& e : procs) e.ProcPrinted = false;  // a run notes afresh what it printed
    auto mark = [this](std::vector<int>& map, std::int32_t record, std::size_t entry) {
        if (record >= 1 && record < static_cast<std::int32_t>(map.size())) map[record] = static_cast<int>(entry);
    };
    for (std::size_t e = procs.size(); e-- > 0;) {
        mark(entryOf_, procs[e].FirstRecord, e);
        mark(declarationOf_, t_.Statements[declarationStatement(procs[e])].FirstRecord, e);
    }
}

// Records of the form's description or of the code, as the request asks.
bool CodeListing::wanted(std::int32_t record) const {
    bool formDefinition = t_.Statements[t_.Records[record].FirstS].Flags.has(StatementFlag::FormDescription);
    return formDefinition ? p_.FormDef : p_.Code;
}

bool CodeListing::breakBefore(std::int32_t record) {
    HlydPAPointNextColumn(pos_, record);
    if (p_.PrintStatus == kPrintStopped) return false;
    if (f_.ConnectControls) {
        AreaRecord top;
        top.Left = pos_.LeftPos;
        top.Right = pos_.RightPos;
        top.Top = pos_.TopPos;
        top.Bottom = p_.UsableArea.Bottom;
        HlydCLContinueBeforeTop(kPrint, top, 0, numberSpace_);
    }
    return true;
}

void CodeListing::separator(std::int32_t record) {
    Printer& printer = *currentPrinter();
    const LayoutMetrics& m = layoutMetrics();
    if (pos_.TopPos + 5.0f * static_cast<float>(m.PrintTwipsPerPixelY) > p_.UsableArea.Bottom && f_.SeparatorBold &&
        !breakBefore(record))
        return;
    if (f_.SeparatorBold) printer.setDrawWidth(5);
    printer.line(pos_.LeftPos, pos_.TopPos, pos_.RightPos, pos_.TopPos,
                 displayAttributes().Elements[kElemKeyWords].slot[kPrint].ForeColor);
    if (f_.SeparatorBold) printer.setDrawWidth(1);
    pos_.TopPos += static_cast<float>((f_.SeparatorBold ? 10 : 5) * m.PrintTwipsPerPixelY);
}

// The contents show the page on which the declaration's first line is printed: a reader looks
// for its start, and a declaration wrapped over a page's end would send them a page too far.
void CodeListing::notePage(int entry) {
    ProcEntry& e = yProc()[static_cast<std::size_t>(entry)];
    e.ProcPage = pos_.FirstLinePage;
    e.ProcPrinted = true;
    if (!hlydSettings().TableOfContents) return;
    // The declarations and a form's definition stand under their names, as in a procedure table.
    if (e.Name == kDeclarations || e.Name == kDesignerObject) return SetTOC(e.Name, e.ProcPage, false);
    std::string declaration;
    const Statement& st = t_.Statements[declarationStatement(e)];
    for (std::int32_t i = st.FirstToken; i >= 1 && i <= st.LastToken; ++i) {
        if (t_.Tokens[i].LeadingLength != 0 && !declaration.empty()) declaration += ' ';
        declaration += t_.Tokens[i].text();
    }
    SetTOC(declaration, e.ProcPage, false);
}

// The lines that must fit below a procedure's start for it to begin there. A rule and a
// declaration alone at a column's foot, their body in the next, read as an empty procedure: so the
// comment lines tied to it, its declaration and two lines of its body go together, however few
// orphan lines the settings ask for (up to a limit, beyond which a long comment may be split).
std::int32_t CodeListing::orphanLines(std::int32_t record, int entry, bool procStart) const {
    constexpr std::int32_t kBodyLines = 2, kMostKeptTogether = 12;
    if (!procStart) return f_.Orphan;
    const Statement& st = t_.Statements[declarationStatement(yProc()[static_cast<std::size_t>(entry)])];
    std::int32_t head = std::max<std::int32_t>(st.LastRecord, st.FirstRecord) - record + 1;
    return std::max<std::int32_t>(f_.Orphan, std::min(head + kBodyLines, kMostKeptTogether));
}

// A blank line that would stand first in a column, or find no room at its foot, separates nothing
// there: it is left out, as long as no line number counts it.
bool CodeListing::blankAt(std::int32_t record) const {
    if (hlydSettings().LineNumbers || p_.PageNumber == 0) return false;
    if (t_.Statements[t_.Records[record].FirstS].Class != StatementClass::Blank) return false;
    float height = static_cast<float>(displayAttributes().Elements[kElemProjectFile].slot[kPrint].Height);
    return atColumnTop() || pos_.TopPos + height > p_.UsableArea.Bottom;
}

bool CodeListing::printRecord(std::int32_t record) {
    const HlydSettings& s = hlydSettings();
    int entry = entryOf_[static_cast<std::size_t>(record)];
    const std::string name = entry >= 0 ? yProc()[static_cast<std::size_t>(entry)].Name : std::string();
    bool procStart = entry >= 0 && name != kDeclarations && name != kDesignerObject;
    if (!wanted(record) || (!procStart && blankAt(record))) return true;
    bool orphan = pos_.TopPos + static_cast<float>(orphanLines(record, entry, procStart)) *
                                        layoutMetrics().MaxFontHeight[kPrint] >
                  p_.UsableArea.Bottom;
    bool skip = f_.ProcSkip == 'P' || f_.ProcSkip == 'C' || orphan;
    if (((skip && procStart) || p_.PageNumber == 0) && !breakBefore(record)) return false;
    if (procStart && s.LineNumberHow == 1) p_.CurrentLineNumber = s.LineNumberStart;
    bool leadingBlank = procStart && blankAt(record) && atColumnTop();
    if (f_.Separator && procStart) separator(record);
    if (p_.PrintStatus == kPrintStopped) return false;
    if (leadingBlank) return true;
    std::int32_t contentsPages = 0;
    awaitDeclaration(declarationOf_[static_cast<std::size_t>(record)]);
    EmitCodeRecord(record, pos_, contentsPages, kEmitCode);
    lastRecord_ = record;
    if (p_.PrintStatus == kPrintStopped) return false;
    if (int declared = declarationOf_[static_cast<std::size_t>(record)]; declared >= 0) notePage(declared);
    return true;
}

void CodeListing::closeConnectors() {
    if (!f_.ConnectControls || lastRecord_ == 0) return;
    const Record& r = t_.Records[lastRecord_];
    std::int32_t open = r.Indent;
    if (t_.Statements[r.FirstS].Flags.has(StatementFlag::Outdent)) ++open;
    HlydCLContinueAfterBottom(kPrint, p_.UsableArea.Bottom, open);
}

void CodeListing::wholeFile() {
    for (std::int32_t record = 1;; ++record) {
        HlydCFGetRecord(record, mainWindow().lblRecord);
        if (record > t_.RecordCount || t_.Records[record].FirstT == 0) break;
        if (p_.PrintStatus == kPrintStopped || !printRecord(record)) break;
    }
    closeConnectors();
}

void CodeListing::selectedProcs() {
    const HlydSettings& s = hlydSettings();
    const std::vector<ProcEntry>& procs = yProc();
    for (std::size_t e = 0; e < procs.size() && p_.PrintStatus != kPrintStopped; ++e) {
        if (e >= p_.SelectedProcs.size() || !p_.SelectedProcs[e]) continue;
        if (s.LineNumberHow == 1) p_.CurrentLineNumber = s.LineNumberStart;
        for (std::int32_t record = procs[e].FirstRecord; record >= 1 && record <= procs[e].LastRecord; ++record) {
            if (record > t_.RecordCount || t_.Records[record].FirstT == 0) break;
            if (!printRecord(record)) break;
        }
    }
    closeConnectors();
}

}  // namespace

void EmitCodeFile(wPos& pos) {
    if (!currentPrinter()) return;
    FontsFittedToColumns fonts;
    CodeListing(pos).wholeFile();
}

void EmitCodeFileSelectedProcs(wPos& pos) {
    if (!currentPrinter()) return;
    FontsFittedToColumns fonts;
    CodeListing(pos).selectedProcs();
}

}  // namespace hlyd
