#include "printing/cross_reference.h"

#include "files/file_table.h"
#include "platform/path_parts.h"
#include "platform/printer.h"
#include "printing/contents_leader.h"
#include "printing/contents_lines.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_file.h"
#include "printing/print_status.h"
#include "printing/printer_fonts.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// What a reader needs to read the lines, said once at the top of the section.
constexpr const char* kLegend =
        "Name (kind) file and page of its declaration: files and pages of its uses; * the page assigns to it";

// A word of an entry as placed on its line; a page number links to its page.
struct Placed {
    float x = 0;
    std::string text;
    bool bold = false;
    std::int32_t runPage = 0;
    float linkWidth = 0;
};
using Line = std::vector<Placed>;

// The pieces of an entry, flowed into lines that end before the right edge; the continuation
// lines stand indented under the first.
class EntryLines {
public:
    EntryLines(Printer& printer, float left, float right) : printer_(printer), left_(left), right_(right) {
        indent_ = 4 * printer_.textWidth(" ");
    }
    std::vector<Line> lay(const XrefEntry& entry);

private:
    void word(std::string text, bool bold = false, float keptWith = 0);
    void page(std::int32_t runPage, bool written, const char* after);
    void place(Placed placed, float width, float keptWith = 0);
    std::string numberText(std::int32_t runPage, bool written, const char* after) const;

    Printer& printer_;
    float left_, right_, indent_ = 0;
    std::vector<Line> lines_;
    float x_ = 0;
};

// `keptWith` is the room of what must follow on the same line: a file's name never ends a line
// without its first page.
void EntryLines::place(Placed placed, float width, float keptWith) {
    float blank = printer_.textWidth(" ");
    float start = lines_.back().empty() ? x_ : x_ + blank;
    if (start + width + keptWith > right_ && !lines_.back().empty()) {
        lines_.emplace_back();
        start = left_ + indent_;
    }
    placed.x = start;
    x_ = start + width;
    lines_.back().push_back(std::move(placed));
}

void EntryLines::word(std::string text, bool bold, float keptWith) {
    printer_.setFontBold(bold);
    // Only a file name can be wider than a whole line; it keeps its start and its end.
    text = shortenPathToWidth(text, right_ - left_ - indent_,
                              [this](const std::string& t) { return printer_.textWidth(t); });
    float width = printer_.textWidth(text);
    printer_.setFontBold(false);
    place({0, std::move(text), bold, 0, 0}, width, keptWith);
}

std::string EntryLines::numberText(std::int32_t runPage, bool written, const char* after) const {
    return std::to_string(linePages().printedNumber[static_cast<std::size_t>(runPage)]) + (written ? "*" : "") + after;
}

void EntryLines::page(std::int32_t runPage, bool written, const char* after) {
    std::string number = numberText(runPage, false, "");
    std::string text = numberText(runPage, written, after);
    place({0, text, false, runPage, printer_.textWidth(number)}, printer_.textWidth(text));
}

std::vector<Line> EntryLines::lay(const XrefEntry& entry) {
    lines_.assign(1, Line{});
    x_ = left_;
    word(entry.name, true);
    word("(" + entry.kind + ")");
    std::string declared = nameAndFolder(entry.declaredFile).name;
    if (entry.declaredPage > 0) {
        word(declared, false, printer_.textWidth(" " + numberText(entry.declaredPage, false, ":")));
        page(entry.declaredPage, false, entry.uses.empty() ? "" : ":");
    } else {
        word(declared + (entry.uses.empty() ? "" : ":"));
    }
    for (std::size_t f = 0; f < entry.uses.size(); ++f) {
        const std::vector<XrefPage>& pages = entry.uses[f].pages;
        word(nameAndFolder(entry.uses[f].file).name, false,
             printer_.textWidth(" " + numberText(pages[0].runPage, pages[0].written, ";")));
        for (std::size_t i = 0; i < pages.size(); ++i) {
            bool last = i + 1 == pages.size();
            page(pages[i].runPage, pages[i].written, !last ? "," : f + 1 < entry.uses.size() ? ";" : "");
        }
    }
    return std::move(lines_);
}

// The section line by line down its pages, headed as the contents are.
class XrefPages {
public:
    XrefPages(Printer& printer, wPos& pos, std::int32_t& contentsPages)
        : printer_(printer),
          pos_(pos),
          contentsPages_(contentsPages),
          a_(displayAttributes().Elements[kElemProjectFile].slot[kPrint]) {}
    void print(const std::vector<XrefEntry>& entries);

private:
    void newPage();
    void keepWhole(std::size_t lines);
    void line(const Line& words);

    Printer& printer_;
    wPos& pos_;
    std::int32_t& contentsPages_;
    AttributeRecord& a_;
    float height_ = 0, pageTop_ = 0;
};

void XrefPages::newPage() {
    EmitHeading(pos_.TopPos, "CROSS-REFERENCE", kPageProcContents, ++contentsPages_);
    HlydPASetAttributes(a_);
    pageTop_ = pos_.TopPos;
    printer_.setCurrentY(pageTop_);
}

// An entry that would run into the footing starts on the next page; one taller than a page
// breaks where the page ends.
void XrefPages::keepWhole(std::size_t lines) {
    float y = printer_.currentY();
    if (y > pageTop_ && y + static_cast<float>(lines) * height_ > printState().UsableArea.Bottom) newPage();
}

void XrefPages::line(const Line& words) {
    if (printer_.currentY() + height_ > printState().UsableArea.Bottom) newPage();
    if (printState().PrintStatus == kPrintStopped) return;
    float top = printer_.currentY();
    for (const Placed& w : words) {
        printer_.setFontBold(w.bold);
        printer_.setCurrentX(w.x);
        printer_.setCurrentY(top);
        printer_.print(w.text);
        if (w.runPage > 0) printer_.linkTo(w.x, top, w.x + w.linkWidth, top + height_, pageDestination(w.runPage));
    }
    printer_.setFontBold(false);
    printer_.setCurrentY(top + height_);
}

void XrefPages::print(const std::vector<XrefEntry>& entries) {
    PrintState& p = printState();
    newPage();
    height_ = static_cast<float>(a_.Height);
    EntryLines lay(printer_, pos_.LeftPos, contentsRightEdge());
    for (const std::string& legend : wrapAtBlanks(kLegend, 0, 4, contentsRightEdge() - pos_.LeftPos,
                                                  [this](const std::string& t) { return printer_.textWidth(t); }))
        line({Placed{pos_.LeftPos, legend}});
    printer_.setCurrentY(printer_.currentY() + height_);
    for (const XrefEntry& entry : entries) {
        if (p.PrintStatus == kPrintStopped) return;
        std::vector<Line> lines = lay.lay(entry);
        keepWhole(lines.size());
        for (const Line& words : lines) line(words);
    }
}

}  // namespace

std::vector<XrefEntry> gatherCrossReference() {
    NameIndex index =
            indexOpenFiles([](const std::string& file) { showPrintStatus("Cross-Reference\r\n\r\n" + file); });
    return crossReferenceEntries(index, linePages());
}

void EmitCrossReference(wPos& pos, const std::vector<XrefEntry>& entries, std::int32_t contentsPages) {
    Printer* printer = currentPrinter();
    PrintState& p = printState();
    FileTableModule& files = fileTable();
    if (!printer) return;
    SetPrinterProp();
    if (contentsPages == 0) p.PagesBeforeToc = p.PageNumber;
    p.PageNumber = 0;
    pos.LeftPos = p.UsableArea.Left;
    pos.RightPos = p.UsableArea.Right;
    files.sVBName = "Cross-Reference";
    if (files.oFile.Count() >= 1 && files.oFile.Item(1).FileType == kFileProject) files.wCurrentFile = 1;
    HlydPHInit(true);
    XrefPages(*printer, pos, contentsPages).print(entries);
    endDocument();
}

}  // namespace hlyd
