#include "html/html_emit.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>
#include <string_view>
#include <system_error>
#include <thread>

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
#include "html/html_state.h"
#include "html/record_plan.h"
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
    LineBuffer line;  // one buffer for every line: a line costs no fresh memory
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
    auto style = [&](int cls, int element) {
        const AttributeRecord& a = displayAttributes().Elements[element].slot[kHTMLDestination];
        doc.InsertStyle(cls, a.Font.Name, static_cast<long>(std::nearbyint(a.Font.Size)), a.Font.Italic, a.Font.Bold,
                        a.ForeColor);
    };
    doc.InsertStyleStart();
    style(99, kElemProcedures);
    for (int e = 1; e <= kElementCount; ++e) style(e, e);
    style(9, kElemKeyWords);
    doc.InsertStyleEnd();
}

std::string withoutDirectory(const std::string& full) {
    std::string name, directory;
    sbFileNameFromDir(full, name, directory);
    return name;
}

// The records of each step: the helper thread's share is the larger, since the main thread also
// plans both shares and writes them (measured: it then waits least). Big enough that starting a
// thread costs little beside the work, small enough that the share kept in memory stays small.
constexpr std::size_t kMainShare = 1500;
constexpr std::size_t kHelperShare = 2700;

// Spaces ahead of a token: the source's own gap, or for the first token that counts the
// analysed indentation (a line number before it keeps its place). `blankAfter` tells that a line
// number is followed by a blank.
int spacesFor(const SourceTables& t, const FormatRecord& f, const Record& r, std::int32_t token,
              std::int32_t firstToken, const Statement& s, int spaces, bool& blankAfter) {
    const Token& tok = t.Tokens[token];
    blankAfter = false;
    if (token != firstToken) {
        spaces = static_cast<int>(tok.LeadingSpace.size());
        blankAfter = token == r.FirstT && isNumericText(tok.Text);
        return spaces;
    }
    // The form description keeps its own layout: its blanks, and no indentation on top of them.
    if (s.Flags.has(StatementFlag::FormDescription)) return spaces + static_cast<int>(tok.LeadingSpace.size());
    if (f.Indent) {
        // Capped as a view caps it: deep nesting would make the document grow with the square of
        // the depth.
        std::int64_t indent = std::int64_t{f.IndentAmount} * r.Indent;
        spaces += static_cast<int>(std::min<std::int64_t>(indent, kFurthestTextColumn));
        if (token > 1 && t.Tokens[token - 1].Continued == 1) spaces += 1;
    } else {
        spaces += static_cast<int>(tok.LeadingSpace.size());
    }
    return spaces;
}

void renderRecord(cGenHTML& doc, LineBuffer& line, const RecordJob& job) {
    const SourceTables& t = theSourceTables();
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    const Statement& s = *job.governing;
    const Record& r = t.Records[job.record];
    const std::vector<std::int32_t>& elements = fileTable().TokenElements;
    line.clear();
    bool procedureLine = t.Statements[r.FirstS].Class == StatementClass::ProcStart;
    bool lastContinued = r.LastT >= 1 && (t.Tokens[r.LastT].Continued & 1);
    if (!(s.Class == StatementClass::Header && f.SkipAttributes)) {
        int spaces = 0;
        for (std::int32_t i = r.FirstT; i <= r.LastT && i >= 1; ++i) {
            bool blankAfter = false;
            spaces = spacesFor(t, f, r, i, job.firstToken, s, spaces, blankAfter);
            int element = i < static_cast<std::int32_t>(elements.size()) ? elements[i] : 0;
            if (element == 0) element = kElemIdentifiers;
            if (procedureLine) element = kElemProcedures;
            doc.AppendToken(t.Tokens[i].Text, spaces, element, line);
            if (blankAfter) line.appendBlanks(1);
        }
        if (f.ContinueHonor && lastContinued) doc.AppendToken(" _", spaces, kElemKeyWords, line);
    }
    if (job.closesHeading) {
        std::string lineBreak;
        doc.InsertLineBreak(lineBreak);
        line.append(lineBreak);
    }
    if (job.procAnchor >= 0) {
        if (f.Separator) doc.InsertHorizontalLine();
        doc.InsertProcStart(std::string(line.view()), withoutAngles(yProc()[job.procAnchor].Name));
    }
    if (job.headingContinues) doc.InsertProcContinue();
    doc.EmitLine(line);
}

void renderJobs(cGenHTML& doc, LineBuffer& line, const std::vector<RecordJob>& jobs) {
    for (const RecordJob& job : jobs) renderRecord(doc, line, job);
}

// Makes `second` into `tail` on a thread of its own while `first` is made here; false when no
// thread could be had, and nothing was made.
bool renderSharesAtOnce(HtmlEmission& e, const std::vector<RecordJob>& first, const std::vector<RecordJob>& second,
                        cGenHTML& tail) {
    std::exception_ptr tailFailure;
    {
        std::jthread helper;
        try {
            helper = std::jthread([&tail, &tailFailure, &second] {
                try {
                    LineBuffer line;
                    renderJobs(tail, line, second);
                } catch (...) {
                    tailFailure = std::current_exception();
                }
            });
        } catch (const std::system_error&) {
            return false;
        }
        renderJobs(*e.doc, e.line, first);
    }
    if (tailFailure) std::rethrow_exception(tailFailure);
    e.doc->writeCaptured(tail);
    return true;
}

// The lines of a large file are made two shares at a time: the second share by a helper
// thread into memory, written after the first (what is kept in memory is one share). Every line
// depends on its own record alone once the records are planned, and each share has its own
// document state, so the bytes are the same as when one thread makes them all.
void emitSourceRecords() {
    HtmlEmission& e = emission();
    bool twoThreads = std::thread::hardware_concurrency() >= 2;
    RecordPlanner planner;
    std::vector<RecordJob> first, second;
    cGenHTML tail;
    tail.captureInMemory();
    for (;;) {
        first.clear();
        second.clear();
        if (!planner.next(first, kMainShare)) return;
        bool more = planner.next(second, kHelperShare);
        if (more && twoThreads && renderSharesAtOnce(e, first, second, tail)) continue;
        twoThreads = false;  // a thread refused once is not asked for again
        renderJobs(*e.doc, e.line, first);
        renderJobs(*e.doc, e.line, second);
    }
}

void emitProject(const cFileDesc& entry) {
    if (entry.WhichProject < 1 || entry.WhichProject > oProjectFiles().Count()) return;
    for (const cProjectLine& line : oProjectFiles().Item(entry.WhichProject).ProjectRecords)
        hlydHTML::EmitProjectRecord(line.AsRecord);
}

}  // namespace

namespace hlydHTML {

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
