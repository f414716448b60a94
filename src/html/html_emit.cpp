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
    LineBuffer line;  // one buffer for every line: a line costs no fresh memory
};
HLYD_PRIVATE_PART(HtmlEmission)

namespace {

HtmlEmission& emission() { return *htmlState().emission; }

// Numbers as the language reads them: digits with a sign, a point, an exponent; or &H and &O.
bool isNumericText(std::string_view text) {
    std::size_t i = 0, n = text.size();
    while (i < n && text[i] == ' ') ++i;
    if (i + 1 < n && text[i] == '&' &&
        (text[i + 1] == 'H' || text[i + 1] == 'h' || text[i + 1] == 'O' || text[i + 1] == 'o'))
        return i + 2 < n && text.find_first_not_of("0123456789ABCDEFabcdef&", i + 2) == std::string_view::npos;
    if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
    bool digits = false;
    while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    }
    if (digits && i < n && (text[i] == 'E' || text[i] == 'e')) {
        ++i;
        if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
        if (i >= n || !std::isdigit(static_cast<unsigned char>(text[i]))) return false;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i;
    }
    while (i < n && text[i] == ' ') ++i;
    return digits && i == n;
}

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

bool shownByView(const Statement& s) {
    const HlydSettings& settings = hlydSettings();
    return s.Flags.has(StatementFlag::FormDescription) ? settings.ViewFormDef[kHTMLDestination]
                                                       : settings.ViewCode[kHTMLDestination];
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
        std::int32_t firstToken = isNumericText(t.Tokens[r.FirstT].Text) ? r.FirstT + 1 : r.FirstT;
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

// Spaces ahead of a token: the source's own gap, or for the first token that counts the
// analysed indentation (a line number before it keeps its place). `blankAfter` tells that a line
// number is followed by a blank.
static int spacesFor(const SourceTables& t, const FormatRecord& f, const Record& r, std::int32_t token,
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

void EmitCodeRecord(std::int32_t record, std::int32_t firstToken, std::int32_t& procIndex) {
    cGenHTML& doc = *emission().doc;
    const SourceTables& t = theSourceTables();
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    const Statement& s = governingStatement(record);
    const Record& r = t.Records[record];
    const std::vector<std::int32_t>& elements = fileTable().TokenElements;
    LineBuffer& line = emission().line;
    line.clear();
    bool procedureLine = t.Statements[r.FirstS].Class == StatementClass::ProcStart;
    bool lastContinued = r.LastT >= 1 && (t.Tokens[r.LastT].Continued & 1);
    if (!(s.Class == StatementClass::Header && f.SkipAttributes)) {
        int spaces = 0;
        for (std::int32_t i = r.FirstT; i <= r.LastT && i >= 1; ++i) {
            bool blankAfter = false;
            spaces = spacesFor(t, f, r, i, firstToken, s, spaces, blankAfter);
            int element = i < static_cast<std::int32_t>(elements.size()) ? elements[i] : 0;
            if (element == 0) element = kElemIdentifiers;
            if (procedureLine) element = kElemProcedures;
            doc.AppendToken(t.Tokens[i].Text, spaces, element, line);
            if (blankAfter) line.appendBlanks(1);
        }
        if (f.ContinueHonor && lastContinued) doc.AppendToken(" _", spaces, kElemKeyWords, line);
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
