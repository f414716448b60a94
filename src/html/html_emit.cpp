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

// What lines are made with, kept from line to line: a line costs no fresh memory.
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

// Records planned at a time: their jobs stay small in memory.
constexpr std::size_t kRecordsPerShare = 4096;

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

// The records are planned a share at a time and each share's lines made after it: the plan
// holds what passes from record to record, so a line is made from its own record and job alone.
// (Making every other share on a second thread was measured slower on a two-core machine: the
// thread's share ran on cold caches, and the main thread waited for it.)
void emitSourceRecords() {
    HtmlEmission& e = emission();
    RecordPlanner planner;
    std::vector<RecordJob> jobs;
    while (planner.next(jobs, kRecordsPerShare)) {
        renderJobs(*e.doc, e.work, jobs);
        jobs.clear();
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
