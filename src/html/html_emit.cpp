#include "html/html_emit.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

#include "analysis/source_model.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "display/project_line_layout.h"
#include "display/token_layout.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/print_history.h"
#include "files/project_file.h"
#include "html/gen_html.h"
#include "html/html_records.h"
#include "html/html_state.h"
#include "platform/clock.h"
#include "platform/ui.h"
#include "settings/attributes.h"
#include "settings/last_folders.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

constexpr Destination kHTMLDestination = kDisplay;  // HTML follows the display settings

}  // namespace

struct HtmlEmission {
    std::unique_ptr<cGenHTML> doc;
    bool procPending = false;
    LineBuffer line;                 // one buffer for every line: a line costs no fresh memory
    std::vector<ShownToken> tokens;  // the same for the tokens of a line
};
HLYD_PRIVATE_PART(HtmlEmission)

namespace {

HtmlEmission& emission() { return *htmlState().emission; }

std::string withoutAngles(std::string name) {
    std::erase(name, '<');
    std::erase(name, '>');
    return name;
}

void writeStyles(cGenHTML& doc) {
    doc.InsertStyleStart();
    doc.InsertLine(htmlElementStyle(99, kElemProcedures));
    for (int e = 1; e <= kElementCount; ++e) doc.InsertLine(htmlElementStyle(e, e));
    doc.InsertLine(htmlElementStyle(9, kElemKeyWords));
    doc.InsertStyleEnd();
}

std::string withoutDirectory(const std::string& full) {
    std::string name, directory;
    sbFileNameFromDir(full, name, directory);
    return name;
}

// The look-up of a record's procedure is a search of them all; the records come in order, so
// nearly always the answer is the procedure of the record before, which is seen from its
// neighbour alone. Only a record past the next procedure's start, or tied to a record there,
// needs the search.
bool stillInProc(const SourceTables& t, std::int32_t record, std::int32_t proc) {
    const std::vector<ProcEntry>& procs = yProc();
    if (proc < 0 || static_cast<std::size_t>(proc) + 1 >= procs.size()) return false;
    std::int32_t tiedTo = record <= t.Records.UBound() ? t.Records[record].TiedTo : 0;
    std::int32_t reach = std::max(record, tiedTo);
    return reach < procs[static_cast<std::size_t>(proc) + 1].FirstRecord &&
           (proc == 0 || procs[static_cast<std::size_t>(proc)].FirstRecord <= reach);
}

void emitSourceRecords() {
    const SourceTables& t = theSourceTables();
    std::int32_t currentProc = 0;
    const std::int32_t upper = static_cast<std::int32_t>(yProc().size() - 1);
    for (std::int32_t counter = 1; counter <= t.RecordCount && t.Records[counter].FirstT != 0; ++counter) {
        const Record& r = t.Records[counter];
        const Statement& s = t.Statements[r.FirstS];
        std::int32_t firstToken = firstIndentedToken(r);
        if (!shownByView(s)) continue;
        bool startsProc = false;
        if (currentProc >= 0 && currentProc <= upper) {
            if (counter > yProc()[currentProc].FirstRecord && !stillInProc(t, counter, currentProc))
                HlydPCGetAssociatedProc(counter, currentProc);
            startsProc = counter == yProc()[currentProc].FirstRecord;
        }
        if (s.Class != StatementClass::ProcStart && !startsProc) {
            std::int32_t none = -1;
            hlydHTML::EmitCodeRecord(counter, firstToken, none);
        } else {
            // A heading continued over records steps the index back, so that it is found again.
            hlydHTML::EmitCodeRecord(counter, firstToken, currentProc);
            if (currentProc < 0) currentProc = 0;
        }
    }
}

void emitProject(const cFileDesc& entry) {
    if (entry.WhichProject < 1 || entry.WhichProject > oProjectFiles().Count()) return;
    for (const cProjectLine& line : oProjectFiles().Item(entry.WhichProject).ProjectRecords)
        hlydHTML::EmitProjectRecord(line.AsRecord);
}

}  // namespace

namespace hlydHTML {

void EmitCodeRecord(std::int32_t record, std::int32_t firstToken, std::int32_t& procIndex) {
    cGenHTML& doc = *emission().doc;
    const SourceTables& t = theSourceTables();
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    const Statement& s = governingStatement(record);
    const Record& r = t.Records[record];
    LineBuffer& line = emission().line;
    line.clear();
    bool lastContinued = r.LastT >= 1 && (t.Tokens[r.LastT].Continued & 1);
    shownTokens(record, firstToken, emission().tokens);
    for (const ShownToken& shown : emission().tokens) {
        doc.AppendToken(shown.text, shown.spaces, shown.element, line);
        if (shown.blankAfter) line.appendBlanks(1);
    }
    if (procIndex >= 0 && s.Class != StatementClass::Blank) {
        const std::int32_t upper = static_cast<std::int32_t>(yProc().size() - 1);
        if (procIndex > upper) procIndex = upper;
        if (emission().procPending) {
            if (!lastContinued) {
                std::string lineBreak;
                doc.InsertLineBreak(lineBreak);
                line.append(lineBreak);
            }
            emission().procPending = false;
        } else {
            if (f.Separator) doc.InsertHorizontalLine();
            doc.InsertProcStart(std::string(line.view()), withoutAngles(yProc()[procIndex].Name));
        }
        if (lastContinued) {
            doc.InsertProcContinue();
            emission().procPending = true;
            --procIndex;
        }
    }
    doc.EmitLine(line);
}

// The document has no right edge and no measures: each line stays whole, and a line of blanks
// is left out.
void EmitProjectRecord(const std::string& text) {
    ProjectLineHooks hooks;
    hooks.drawPiece = [](const std::string& piece, float, float, bool) {
        LineBuffer& line = emission().line;
        line.clear();
        emission().doc->AppendToken(piece, 0, kElemProjectFile, line);
        emission().doc->EmitLine(line);
    };
    AreaRecord noArea;
    layoutProjectLine(text, noArea, hooks);
}

}  // namespace hlydHTML

bool HTMLEmitAFile(const std::function<void(const std::string& target)>& targetChosen) {
    TraceScope trace(theDebug().TraceApplication, "HTMLEmitAFile");
    FileTableModule& files = fileTable();
    if (files.wCurrentFile < 1 || files.wCurrentFile > files.oFile.Count()) return false;
    theUi().setBusy(true);
    emission().doc = std::make_unique<cGenHTML>();
    emission().procPending = false;
    const cFileDesc& entry = files.oFile.Item(files.wCurrentFile);
    bool project = entry.FileType == kFileGroup || entry.FileType == kFileProject;
    std::string name = withoutDirectory(entry.FileName);
    std::string saved = "File saved: " + formatDefaultDateTime(fileLastSaved(entry.FileName));
    std::string generated = "Generated: " + formatDefaultDateTime(theClock().now());
    cGenHTML& doc = *emission().doc;
    // A failure leaves no unfinished document behind: releasing it removes its part file.
    struct Release {
        ~Release() { emission().doc.reset(); }
    } release;
    doc.InitDoc(name, entry.FileName, project ? name : files.sVBName, saved, generated);
    const bool written = !doc.Cancelled;
    if (written) {
        if (targetChosen) targetChosen(doc.OutputPath());
        writeStyles(doc);
        mainWindow().disableControls();
        if (!project) {
            doc.InsertTOCStart();
            for (const ProcEntry& p : yProc()) doc.InsertTOCLine(withoutAngles(p.Name));
        }
        doc.InsertHeaderLinksEnd();
        if (project) emitProject(entry);
        else emitSourceRecords();
        doc.TerminateDoc();
    }
    emission().doc.reset();
    mainWindow().enableControls();
    theUi().setBusy(false);
    return written;
}

void HlydMNSaveAsHTML() {
    const FileTableModule& files = fileTable();
    if (files.wCurrentFile < 1 || files.wCurrentFile > files.oFile.Count()) return;
    const std::string name = files.oFile.Item(files.wCurrentFile).FileName;
    // The status speaks of the work once there is work: a Cancel in the dialog leaves it as it was.
    bool written = HTMLEmitAFile([&name](const std::string& target) {
        rememberHtmlFolder(target);
        mainWindow().lblStatus = "Generating HTML for file " + name + " ...";
        theUi().processEvents();
    });
    // A document of a file cut at a limit of the reader ends where the reading stopped.
    const std::string& cut = fileTable().readingCut;
    if (written) mainWindow().lblStatus = "HTML generated for " + name + (cut.empty() ? "" : "; " + cut);
}

}  // namespace hlyd
