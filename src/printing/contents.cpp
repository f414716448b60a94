#include "printing/contents.h"

#include <cmath>

#include "display/font_metrics.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/proc_list.h"
#include "platform/printer.h"
#include "printing/code_printing.h"
#include "printing/contents_lines.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_file.h"
#include "printing/print_status.h"
#include "printing/printer_fonts.h"
#include "printing/project_printing.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::vector<TocEntry> toc(1);

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

// The numbers end here; the area's Right may lie a little further out.
float rightEdge() {
    const AreaRecord& a = printState().UsableArea;
    return a.Left + a.Width;
}

void newContentsPage(wPos& pos, std::int32_t& contentsPages, bool project) {
    if (project) HlydPHEmitProjectProcContents(pos.TopPos);
    else HlydPHEmitProcContents(pos.TopPos, contentsPages, "PROCEDURE ");
}

// The page numbers stand in a column at the right edge, wide enough for the widest of them and a
// leader of at least two dots with a blank before and after: a declaration wraps before the
// column, so no number ever lands on text and every number ends at one right edge.
float numberColumn(Printer& printer, const std::string& widestPage) {
    return printer.textWidth(widestPage) + 2 * printer.textWidth(" ") + 3 * printer.textWidth(".");
}

// Dots from a blank after the text to a blank before the page number, on one grid for all lines
// so that they stand in columns; then the number, ending at the right edge. False, with nothing
// printed, when fewer than two dots would fit.
bool leaderAndPage(Printer& printer, float x, const std::string& page) {
    float d = printer.textWidth(".");
    float blank = printer.textWidth(" ");
    float pageWidth = printer.textWidth(page);
    if (d > 0) x = std::ceil((x + blank) / d) * d;
    float room = rightEdge() - pageWidth - blank - x;
    long dots = d > 0 && room >= 0 ? static_cast<long>(room / d) : 0;
    if (dots < 2) return false;
    printer.setCurrentX(x);
    printer.print(std::string(static_cast<std::size_t>(dots), '.'));
    printer.setCurrentX(rightEdge() - pageWidth);
    printer.print(page);
    return true;
}

std::string pageText(std::int32_t page) { return std::to_string(page) + "  "; }

// The table of a file's procedures, one entry at a time: an entry that does not fit below the
// last goes to the next page whole, unless it is taller than a page.
class ProcedureTable {
public:
    ProcedureTable(Printer& printer, wPos& pos, std::int32_t& contentsPages, bool project)
        : printer_(printer), pos_(pos), contentsPages_(contentsPages), project_(project),
          a_(printAttributes(kElemProcedures)), height_(static_cast<float>(a_.Height)) {}
    void print(const std::vector<ProcEntry>& procs);

private:
    void entry(const ProcEntry& entry, const std::string& target);
    void keepWhole(float height);
    float dotsAndPage(const std::string& page);

    Printer& printer_;
    wPos& pos_;
    std::int32_t& contentsPages_;
    bool project_;
    AttributeRecord& a_;
    float height_;
    float pageTop_ = -1;  // where the page's first entry went; -1 before one stands on the page
    float entryTop_ = 0;  // where the entry being printed begins, on page entryPage_
    std::int32_t entryPage_ = 0;
};

void ProcedureTable::keepWhole(float height) {
    bool pageHasEntries = pageTop_ >= 0 && pos_.TopPos > pageTop_;
    if (pos_.TopPos + height >= printState().UsableArea.Bottom && pageHasEntries) {
        newContentsPage(pos_, contentsPages_, project_);
        pageTop_ = pos_.TopPos;
    }
    entryTop_ = pos_.TopPos;
    entryPage_ = printState().PageNumber;
}

// Returns the top of the line the page number went on.
float ProcedureTable::dotsAndPage(const std::string& page) {
    HlydPASetAttributes(a_);
    float x = printer_.currentX();
    float y = printer_.currentY();
    if (!leaderAndPage(printer_, x, page)) {
        // Only a name no column was kept for gets here: its dots and page take the next line.
        pos_.TopPos = y + height_;
        if (pos_.TopPos + height_ >= printState().UsableArea.Bottom) {
            newContentsPage(pos_, contentsPages_, project_);
            pageTop_ = pos_.TopPos;
            HlydPASetAttributes(a_);
        }
        y = pos_.TopPos;
        printer_.setCurrentY(y);
        leaderAndPage(printer_, pos_.LeftPos, page);
    }
    return y;
}

void ProcedureTable::entry(const ProcEntry& entry, const std::string& target) {
    if (pageTop_ < 0) pageTop_ = pos_.TopPos;
    if (entry.Name == "<Declarations>" || entry.Name == "(Designer Object Definition)") {
        keepWhole(height_);
        HlydPASetAttributes(a_);
        printer_.setCurrentX(pos_.LeftPos);
        printer_.setCurrentY(pos_.TopPos);
        printer_.print(entry.Name);
        pos_.TopPos += height_;
    } else {
        std::int32_t record = theSourceTables().Statements[declarationStatement(entry)].FirstRecord;
        float endX = 0;
        keepWhole(MeasureContentsRecord(record, pos_, endX));
        std::string text;
        EmitCodeRecord(record, pos_, contentsPages_, project_ ? kEmitProjectContents : kEmitProcContents, text);
    }
    if (printState().PrintStatus == kPrintStopped) return;
    float top = pos_.TopPos;
    pos_.TopPos = std::max(top, dotsAndPage(pageText(entry.ProcPage)) + height_);
    // An entry taller than a page links from its last line.
    bool onePage = printState().PageNumber == entryPage_;
    linkLines(printer_, onePage ? entryTop_ : pos_.TopPos - height_, pos_.TopPos, target);
}

void ProcedureTable::print(const std::vector<ProcEntry>& procs) {
    PrintState& p = printState();
    std::int32_t widest = 0;
    for (const ProcEntry& e : procs)
        if (e.ProcPrinted) widest = std::max(widest, e.ProcPage);
    HlydPASetAttributes(a_);
    pos_.RightPos = rightEdge() - numberColumn(printer_, pageText(widest));
    for (std::size_t e = 0; e < procs.size() && p.PrintStatus != kPrintStopped; ++e)
        if (procs[e].ProcPrinted) entry(procs[e], procedureDestination(fileTable().wCurrentFile, static_cast<int>(e)));
}

// The table of contents line by line down its pages: files and projects in bold, procedures
// with their pages.
class TocPages {
public:
    TocPages(Printer& printer, wPos& pos, std::int32_t& contentsPages)
        : printer_(printer), pos_(pos), contentsPages_(contentsPages), a_(printAttributes(kElemProjectFile)) {}
    void print();

private:
    void procedure(const TocEntry& entry);
    void heading(const TocEntry& entry, bool more);
    void keepWhole(std::size_t lines);
    void link(const TocEntry& entry);
    void newPage();
    void endLine(bool more);
    float width(const std::string& text) { return printer_.textWidth(text); }

    Printer& printer_;
    wPos& pos_;
    std::int32_t& contentsPages_;
    AttributeRecord& a_;
    float height_ = 0, pageTop_ = 0, column_ = 0;
    bool bold_ = false;
    float entryTop_ = 0;  // where the entry being printed begins, on page entryPage_
    std::int32_t entryPage_ = 0;
};

void TocPages::newPage() {
    HlydPHEmitProcContents(pos_.TopPos, contentsPages_, "TABLE OF ");
    HlydPASetAttributes(a_);
    printer_.setFontBold(bold_);
    pageTop_ = printer_.textHeight("XXX") + pos_.TopPos;
    printer_.setCurrentY(pageTop_);
    printer_.setCurrentX(pos_.LeftPos);
}

// Ends a line. With more to come, a line that would reach the footing starts the next page, also
// within a procedure's declaration taller than a page.
void TocPages::endLine(bool more) {
    printer_.setCurrentY(printer_.currentY() + height_);
    if (more && printer_.currentY() + height_ > printState().UsableArea.Bottom) newPage();
    printer_.setCurrentX(pos_.LeftPos);
}

// An entry of `lines` lines that would run into the footing starts on the next page.
void TocPages::keepWhole(std::size_t lines) {
    float y = printer_.currentY();
    if (y > pageTop_ && y + static_cast<float>(lines) * height_ > printState().UsableArea.Bottom) newPage();
    entryTop_ = printer_.currentY();
    entryPage_ = printState().PageNumber;
}

// The entry's lines, or the last of them when it ran over a page, link to the place it lists.
void TocPages::link(const TocEntry& entry) {
    float lineTop = printer_.currentY();
    bool onePage = printState().PageNumber == entryPage_;
    linkLines(printer_, onePage ? entryTop_ : lineTop, lineTop + height_, entry.Destination);
}

// A project or file: its name in bold, a path too wide for the line shortened in its middle; kept
// on the page of its first procedure.
void TocPages::heading(const TocEntry& entry, bool more) {
    keepWhole(more ? 2 : 1);
    std::string text = shortenPathToWidth(entry.Text, rightEdge() - pos_.LeftPos,
                                          [this](const std::string& t) { return width(t); });
    printer_.print(text);
    link(entry);
}

// A procedure's declaration, broken at blanks before the column of page numbers; the page stands
// on the last line.
void TocPages::procedure(const TocEntry& entry) {
    float room = rightEdge() - pos_.LeftPos - column_;
    std::vector<std::string> lines =
        wrapAtBlanks(entry.Text, 6, 10, room, [this](const std::string& t) { return width(t); });
    keepWhole(lines.size());
    for (std::size_t i = 0; i < lines.size() && printState().PrintStatus != kPrintStopped; ++i) {
        if (i > 0) endLine(true);
        printer_.print(lines[i]);
    }
    leaderAndPage(printer_, printer_.currentX(), entry.Page);
    link(entry);
}

void TocPages::print() {
    PrintState& p = printState();
    HlydPASetAttributes(a_);
    pos_.TopPos += printer_.textHeight("XXX");
    height_ = static_cast<float>(a_.Height);
    pageTop_ = pos_.TopPos;
    std::string widest;
    for (const TocEntry& entry : toc)
        if (entry.Type == kTocProcedure && width(entry.Page) > width(widest)) widest = entry.Page;
    column_ = numberColumn(printer_, widest);
    printer_.setCurrentY(pos_.TopPos);
    printer_.setCurrentX(pos_.LeftPos);
    for (std::size_t i = 1; i < toc.size() && p.PrintStatus != kPrintStopped; ++i) {
        const TocEntry& entry = toc[i];
        bool more = i + 1 < toc.size();
        bold_ = entry.Type != kTocProcedure;
        printer_.setFontBold(bold_);
        // A blank line at the top of a page would only push the page's entries down.
        if (entry.Type == kTocBlank && printer_.currentY() <= pageTop_) continue;
        if (entry.Type == kTocProcedure) procedure(entry);
        else if (entry.Type != kTocBlank) heading(entry, more);
        endLine(more);
    }
}

}  // namespace

std::vector<TocEntry>& TOC() { return toc; }
void resetTOC() { toc.assign(1, TocEntry{}); }

void addTocEntry(std::int16_t type, const std::string& text, const std::string& destination) {
    toc.push_back({type, text, "", destination});
}

void SetTOC(const std::string& text, std::int32_t page, bool continued) {
    if (!continued || toc.size() < 2) toc.emplace_back();
    TocEntry& last = toc.back();
    last.Text += text;
    last.Type = kTocProcedure;
    last.Page = std::to_string(page) + "  ";
    last.Destination = lastDeclaration();
}

void EmitProcContents(wPos& pos, std::int32_t& contentsPages, bool, bool project) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    if (!printer) return;
    SetPrinterProp();
    pos.LeftPos = p.UsableArea.Left;
    ProcedureTable(*printer, pos, contentsPages, project).print(yProc());
    pos.RightPos = p.UsableArea.Right;
}

void EmitProcContentsForOneFile(wPos& pos, bool mode) {
    SetPrinterProp();
    std::int32_t contentsPages = 0;
    HlydPHEmitProcContents(pos.TopPos, contentsPages, "PROCEDURE ");
    if (printState().PrintStatus == kPrintStopped) return;
    EmitProcContents(pos, contentsPages, mode, false);
}

void EmitProcContentsProject(wPos& pos) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    if (!printer) return;
    SetPrinterProp();
    pos.LeftPos = p.UsableArea.Left;
    pos.RightPos = p.UsableArea.Right;
    pos.TopPos = p.UsableArea.Bottom + 1;
    AttributeRecord& a = printAttributes(kElemProjectFile);
    float rule = 5.0f * static_cast<float>(layoutMetrics().PrintTwipsPerPixelY);
    auto drawRule = [&] {
        printer->setDrawWidth(5);
        printer->line(p.UsableArea.Left, pos.TopPos, p.UsableArea.Right, pos.TopPos, a.ForeColor);
        pos.TopPos += rule;
        printer->setDrawWidth(1);
    };
    for (int i = 2; i <= files.oFile.Count() && p.PrintStatus != kPrintStopped; ++i) {
        files.wCurrentFile = static_cast<std::int16_t>(i);
        showPrintStatus("Reading...\r\n" + files.oFile.Item(i).FileName);
        if (pos.TopPos > p.UsableArea.Bottom - rule) HlydPHEmitProjectProcContents(pos.TopPos);
        if (p.PrintStatus == kPrintStopped) return;
        pos.TopPos += static_cast<float>(a.Height);
        drawRule();
        if (pos.TopPos + static_cast<float>(a.Height) > p.UsableArea.Bottom) HlydPHEmitProjectProcContents(pos.TopPos);
        HlydPASetAttributes(a);
        EmitProjectRecord(files.oFile.Item(i).FileName, pos);
        if (pos.TopPos <= p.UsableArea.Bottom - rule) drawRule();
        HlydFLProcessSelectedFile(static_cast<std::int16_t>(i));
        std::int32_t contentsPages = 0;
        EmitProcContents(pos, contentsPages, false, true);
    }
}

void EmitTOC(wPos& pos) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    if (!printer) return;
    if (hlydSettings().PrintContinuous) duplexPadding(false);
    SetPrinterProp();
    p.PagesBeforeToc = p.PageNumber;
    p.PageNumber = 0;
    pos.LeftPos = p.UsableArea.Left;
    pos.RightPos = p.UsableArea.Right;
    files.sVBName = "Contents";
    if (files.oFile.Count() >= 1 && files.oFile.Item(1).FileType == kFileProject) files.wCurrentFile = 1;
    HlydPHInit(true);
    std::int32_t contentsPages = 0;
    HlydPHEmitProcContents(pos.TopPos, contentsPages, "TABLE OF ");
    if (p.PrintStatus == kPrintStopped) return;
    TocPages(*printer, pos, contentsPages).print();
    endDocument();
}

}  // namespace hlyd
