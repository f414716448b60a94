#include "printing/contents.h"

#include <cmath>

#include "display/font_metrics.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/proc_list.h"
#include "platform/printer.h"
#include "printing/code_printing.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_file.h"
#include "printing/print_status.h"
#include "printing/printer_fonts.h"
#include "printing/project_printing.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::vector<TocEntry> toc(1);

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

float rightEdge() {
    const AreaRecord& a = printState().UsableArea;
    return a.Left + a.Width;
}

void newContentsPage(wPos& pos, std::int32_t& contentsPages, bool project) {
    if (project) HlydPHEmitProjectProcContents(pos.TopPos);
    else HlydPHEmitProcContents(pos.TopPos, contentsPages, "PROCEDURE ");
}

// Dots from where the name ended to the page number at the right edge; the dots of all lines
// stand on one grid.
void dotsAndPage(Printer& printer, wPos& pos, std::int32_t& contentsPages, bool project, const std::string& page) {
    HlydPASetAttributes(printAttributes(kElemProcedures));
    float d = printer.textWidth(".");
    float pageWidth = printer.textWidth(page);
    float x = printer.currentX();
    float y = printer.currentY();
    float h = static_cast<float>(printAttributes(kElemProcedures).Height);
    if (x + pageWidth + d > pos.RightPos) {
        y += h;
        pos.TopPos = y;
        // The line must end above the bottom limit, as a declaration's own lines do: one that
        // only begins above it runs into the footing.
        if (pos.TopPos + h > printState().UsableArea.Bottom) {
            newContentsPage(pos, contentsPages, project);
            HlydPASetAttributes(printAttributes(kElemProcedures));
            y = pos.TopPos;
        }
        x = pos.LeftPos;
    }
    if (d > 0) x = std::ceil(x / d) * d;
    float room = rightEdge() - x - pageWidth;
    long dots = d > 0 && room >= 0 ? static_cast<long>(room / d) : 0;
    printer.setCurrentX(x);
    printer.setCurrentY(y);
    if (dots > 0) printer.print(std::string(static_cast<std::size_t>(dots), '.'));
    printer.setCurrentX(rightEdge() - pageWidth);
    printer.print(page);
    pos.TopPos = y + h;
}

// A word wider than the room beside its indent is cut where the room ends; at least one of its
// characters goes on the line, so that every line takes something away.
std::size_t cutInWord(Printer& printer, const std::string& text, std::size_t indent, float room) {
    std::size_t cut = indent + 1;
    while (cut < text.size() && printer.textWidth(text.substr(0, cut + 1)) <= room) ++cut;
    return cut;
}

// Where a procedure's text breaks to fit the room: at the last blank that leaves the piece within
// it, or inside a word too wide for a line; the text's length when it all fits.
std::size_t tocBreak(Printer& printer, const std::string& text, float room, float xw) {
    std::size_t n = static_cast<std::size_t>(std::max(1.0f, room / xw));
    std::size_t cut = n;
    for (std::size_t c = std::min(n, text.size()); c >= 2; --c)
        if (text[c - 1] == ' ') {
            cut = c;
            break;
        }
    for (std::size_t next = text.find(' ', cut); next != std::string::npos && printer.textWidth(text.substr(0, next)) <= room;
         next = text.find(' ', next + 1))
        cut = next;
    // A break within the indent would print blanks and leave the text as long as before.
    std::size_t indent = text.find_first_not_of(' ');
    if (indent == std::string::npos) return text.size();
    if (cut <= indent) cut = cutInWord(printer, text, indent, room);
    return std::min(cut, text.size());
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
    void endLine(bool more);

    Printer& printer_;
    wPos& pos_;
    std::int32_t& contentsPages_;
    AttributeRecord& a_;
    float d_ = 0, xw_ = 0, height_ = 0;
    bool bold_ = false;
};

// Ends a line. With more to come, a line that would reach the footing starts the next page, also
// within a procedure's declaration that takes many lines.
void TocPages::endLine(bool more) {
    PrintState& p = printState();
    printer_.setCurrentY(printer_.currentY() + height_);
    if (more && printer_.currentY() + height_ > p.UsableArea.Bottom) {
        HlydPHEmitProcContents(pos_.TopPos, contentsPages_, "TABLE OF ");
        HlydPASetAttributes(a_);
        printer_.setFontBold(bold_);
        printer_.setCurrentY(printer_.textHeight("XXX") + pos_.TopPos);
    }
    printer_.setCurrentX(pos_.LeftPos);
}

// A procedure's line, broken at blanks to fit beside its page number; the page stands on the
// last piece.
void TocPages::procedure(const TocEntry& entry) {
    std::string text = std::string(6, ' ') + entry.Text;
    float pw = printer_.textWidth(entry.Page);
    float room = pos_.RightPos - pos_.LeftPos - pw;
    while (xw_ > 0 && xw_ * static_cast<float>(text.size()) > room && printState().PrintStatus != kPrintStopped) {
        std::size_t cut = tocBreak(printer_, text, room, xw_);
        if (cut >= text.size()) break;
        printer_.print(text.substr(0, cut));
        endLine(true);
        text = std::string(10, ' ') + text.substr(cut);
    }
    printer_.print(text);
    float length = rightEdge() - printer_.currentX() - pw;
    long dots = d_ > 0 ? static_cast<long>((length < 0 ? d_ : length) / d_) : 0;
    printer_.print(std::string(static_cast<std::size_t>(std::max(1L, dots)), '.'));
    printer_.setCurrentX(rightEdge() - pw);
    printer_.print(entry.Page);
}

void TocPages::print() {
    PrintState& p = printState();
    HlydPASetAttributes(a_);
    d_ = printer_.textWidth(".");
    pos_.TopPos += printer_.textHeight("XXX");
    xw_ = printer_.textWidth("x");
    height_ = static_cast<float>(a_.Height);
    printer_.setCurrentY(pos_.TopPos);
    printer_.setCurrentX(pos_.LeftPos);
    for (std::size_t i = 1; i < toc.size() && p.PrintStatus != kPrintStopped; ++i) {
        const TocEntry& entry = toc[i];
        bold_ = entry.Type != kTocProcedure;
        printer_.setFontBold(bold_);
        if (entry.Type != kTocProcedure) printer_.print(entry.Text);
        else procedure(entry);
        endLine(i + 1 < toc.size());
    }
}

}  // namespace

std::vector<TocEntry>& TOC() { return toc; }
void resetTOC() { toc.assign(1, TocEntry{}); }

void addTocEntry(std::int16_t type, const std::string& text) { toc.push_back({type, text, ""}); }

void SetTOC(const std::string& text, std::int32_t page, bool continued) {
    if (!continued || toc.size() < 2) toc.emplace_back();
    TocEntry& last = toc.back();
    last.Text += text;
    last.Type = kTocProcedure;
    last.Page = std::to_string(page) + "  ";
}

void EmitProcContents(wPos& pos, std::int32_t& contentsPages, bool, bool project) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    if (!printer) return;
    SetPrinterProp();
    pos.LeftPos = p.UsableArea.Left;
    pos.RightPos = p.UsableArea.Right;
    const std::vector<ProcEntry>& procs = yProc();
    for (std::size_t e = 0; e < procs.size() && p.PrintStatus != kPrintStopped; ++e) {
        const ProcEntry& entry = procs[e];
        if (!entry.ProcPrinted) continue;
        if (entry.Name == "<Declarations>" || entry.Name == "(Designer Object Definition)") {
            if (pos.TopPos + static_cast<float>(printAttributes(kElemProcedures).Height) > p.UsableArea.Bottom)
                newContentsPage(pos, contentsPages, project);
            HlydPASetAttributes(printAttributes(kElemProcedures));
            printer->setCurrentX(pos.LeftPos);
            printer->setCurrentY(pos.TopPos);
            printer->print(entry.Name);
        } else {
            std::string text;
            std::int32_t record = theSourceTables().Statements[declarationStatement(entry)].FirstRecord;
            EmitCodeRecord(record, pos, contentsPages, project ? kEmitProjectContents : kEmitProcContents, text);
        }
        if (p.PrintStatus == kPrintStopped) return;
        dotsAndPage(*printer, pos, contentsPages, project, std::to_string(entry.ProcPage) + "  ");
    }
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
