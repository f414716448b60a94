// The table of contents of a print run: every file and procedure printed, in the order printed,
// with the pages they start on, as a document of its own after the listing.
#include <vector>

#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/contents.h"
#include "printing/contents_leader.h"
#include "printing/contents_lines.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_file.h"
#include "printing/printer_fonts.h"
#include "printing/printing_state.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::vector<TocEntry>& toc() { return printingState().toc; }

// The table of contents line by line down its pages: files and projects in bold, procedures
// with their pages.
class TocPages {
public:
    TocPages(Printer& printer, wPos& pos, std::int32_t& contentsPages)
        : printer_(printer),
          pos_(pos),
          contentsPages_(contentsPages),
          a_(displayAttributes().Elements[kElemProjectFile].slot[kPrint]) {}
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
    std::string text = shortenPathToWidth(entry.Text, contentsRightEdge() - pos_.LeftPos,
                                          [this](const std::string& t) { return width(t); });
    printer_.print(text);
    link(entry);
}

// A procedure's declaration, broken at blanks before the column of page numbers; the page stands
// on the last line.
void TocPages::procedure(const TocEntry& entry) {
    float room = contentsRightEdge() - pos_.LeftPos - column_;
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
    for (const TocEntry& entry : toc())
        if (entry.Type == kTocProcedure && width(entry.Page) > width(widest)) widest = entry.Page;
    column_ = numberColumn(printer_, widest);
    printer_.setCurrentY(pos_.TopPos);
    printer_.setCurrentX(pos_.LeftPos);
    for (std::size_t i = 1; i < toc().size() && p.PrintStatus != kPrintStopped; ++i) {
        const TocEntry& entry = toc()[i];
        bool more = i + 1 < toc().size();
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

std::vector<TocEntry>& TOC() { return toc(); }
void resetTOC() { toc().assign(1, TocEntry{}); }

void addTocEntry(std::int16_t type, const std::string& text, const std::string& destination) {
    toc().push_back({type, text, "", destination});
}

void SetTOC(const std::string& text, std::int32_t page, bool continued) {
    if (!continued || toc().size() < 2) toc().emplace_back();
    TocEntry& last = toc().back();
    last.Text += text;
    last.Type = kTocProcedure;
    last.Page = pageText(page);
    last.Destination = lastDeclaration();
}

std::int32_t EmitTOC(wPos& pos) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    if (!printer) return 0;
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
    if (p.PrintStatus == kPrintStopped) return contentsPages;
    TocPages(*printer, pos, contentsPages).print();
    endDocument();
    return contentsPages;
}

}  // namespace hlyd
