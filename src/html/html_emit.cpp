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
#include "html/html_records.h"
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

// What a thread makes lines with, kept from line to line: a line costs no fresh memory.
struct LineWork {
    LineBuffer line;
    std::vector<ShownToken> tokens;
};

struct HtmlEmission {
    std::unique_ptr<cGenHTML> doc;
    LineWork work;
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

// The records of each step: the helper thread's share is the larger, since the main thread also
// plans both shares and writes them (measured: it then waits least). Big enough that starting a
// thread costs little beside the work, small enough that the share kept in memory stays small.
constexpr std::size_t kMainShare = 1500;
constexpr std::size_t kHelperShare = 2700;

void renderRecord(cGenHTML& doc, LineWork& work, const RecordJob& job) {
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    LineBuffer& line = work.line;
    line.clear();
    shownTokens(job.record, job.firstToken, *job.governing, work.tokens);
    for (const ShownToken& shown : work.tokens) {
        doc.AppendToken(shown.text, shown.spaces, shown.element, line);
        if (shown.blankAfter) line.appendBlanks(1);
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

void renderJobs(cGenHTML& doc, LineWork& work, const std::vector<RecordJob>& jobs) {
    for (const RecordJob& job : jobs) renderRecord(doc, work, job);
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
                    LineWork work;
                    renderJobs(tail, work, second);
                } catch (...) {
                    tailFailure = std::current_exception();
                }
            });
        } catch (const std::system_error&) {
            return false;
        }
        renderJobs(*e.doc, e.work, first);
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
        renderJobs(*e.doc, e.work, first);
        renderJobs(*e.doc, e.work, second);
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
        LineBuffer& line = emission().work.line;
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
