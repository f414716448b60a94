// One record on paper: the rule of the screen's layout, with the paper's breaks, line numbers and
// gaps given to it as parameters.
#include <limits>

#include "base/text_format.h"
#include "display/connectors.h"
#include "display/font_metrics.h"
#include "display/token_layout.h"
#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/code_printing.h"
#include "printing/columns.h"
#include "printing/line_pages.h"
#include "printing/page_change.h"
#include "printing/printer_fonts.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

// The levels still open at a break: the record's own, and the one a closer is about to end.
std::int32_t openLevels(std::int32_t record) {
    const SourceTables& t = theSourceTables();
    std::int32_t indent = t.Records[record].Indent;
    if (t.Statements[t.Records[record].FirstS].Flags.has(StatementFlag::Outdent)) ++indent;
    return indent;
}

AreaRecord areaAt(const wPos& pos, float leftShift) {
    AreaRecord a;
    a.Left = pos.LeftPos + leftShift;
    a.Right = pos.RightPos;
    a.Top = pos.TopPos;
    a.Bottom = printState().UsableArea.Bottom;
    return a;
}

// A contents line is a declaration on its own: it runs to its statement's end, a gap is one
// blank, and a wrapped line hangs further in, with no continuation mark.
constexpr int kContentsWrapIndent = 4;

RecordLayoutHooks contentsHooks() {
    RecordLayoutHooks hooks;
    hooks.gap = GapRule::SingleBlank;
    hooks.toStatementEnd = true;
    hooks.whiteIsPaper = true;
    hooks.continuationMarks = false;
    hooks.wrapIndentBlanks = kContentsWrapIndent;
    return hooks;
}

class RecordOnPaper {
public:
    RecordOnPaper(std::int32_t record, wPos& pos, std::int32_t& contentsPages, int mode)
        : record_(record), pos_(pos), contentsPages_(contentsPages), mode_(mode) {}
    std::int32_t run();

private:
    bool breakHere(AreaRecord& area);
    void lineNumber(float y, float lineHeight);
    void connectors(const AreaRecord& area, float lineHeight, std::int32_t wraps, float xToken);

    std::int32_t record_;
    wPos& pos_;
    std::int32_t& contentsPages_;
    int mode_;
    float numberWidth_ = 0;
};

bool RecordOnPaper::breakHere(AreaRecord& area) {
    PrintState& p = printState();
    bool connect = displayAttributes().Format[kPrint].ConnectControls != 0;
    if (mode_ == kEmitProcContents) {
        HlydPHEmitProcContents(pos_.TopPos, contentsPages_, "PROCEDURE ");
    } else if (mode_ == kEmitProjectContents) {
        HlydPHEmitProjectProcContents(pos_.TopPos);
    } else {
        std::int32_t indent = openLevels(record_);
        if (connect) HlydCLContinueAfterBottom(kPrint, area.Bottom, indent);
        if (p.PrintStatus == kPrintStopped) return false;
        HlydPAPointNextColumn(pos_, record_);
        if (p.PrintStatus == kPrintStopped) return false;
        if (connect) HlydCLContinueBeforeTop(kPrint, areaAt(pos_, 0), indent, numberWidth_);
    }
    if (p.PrintStatus == kPrintStopped) return false;
    area = areaAt(pos_, numberWidth_);
    return true;
}

void RecordOnPaper::lineNumber(float y, float lineHeight) {
    Printer* printer = currentPrinter();
    if (!printer) return;
    PrintState& p = printState();
    AttributeRecord& a = printAttributes(kElemLineNumbers);
    HlydPASetAttributes(a);
    std::string text = zeroPad(p.CurrentLineNumber, 5);
    float yText = y + lineHeight - static_cast<float>(a.Height);
    if (a.BackColor != kWhite)
        printer->filledBox(pos_.LeftPos, yText, pos_.LeftPos + printer->textWidth(text), y + lineHeight, a.BackColor);
    printer->setCurrentX(pos_.LeftPos);
    printer->setCurrentY(yText);
    printer->print(text);
    p.CurrentLineNumber += hlydSettings().LineNumberIncrement;
}

void RecordOnPaper::connectors(const AreaRecord& area, float lineHeight, std::int32_t wraps, float xToken) {
    AreaRecord at = area;
    at.Left -= numberWidth_;
    AreaRecord next = at;
    next.Top = at.Top + lineHeight;
    float xOffset = numberWidth_;
    HlydCLBeginOrEnd(kPrint, at, theSourceTables().Records[record_].Indent, next, wraps, record_, xToken,
                     displayAttributes().Format[kPrint], xOffset);
}

std::int32_t RecordOnPaper::run() {
    PrintState& p = printState();
    bool numbered = hlydSettings().LineNumbers && mode_ == kEmitCode;
    numberWidth_ = numbered ? p.LineNumberWidth : 0;
    pos_.BottomLimit = p.UsableArea.Bottom;
    RecordLayoutHooks hooks = mode_ == kEmitCode ? RecordLayoutHooks{} : contentsHooks();
    hooks.whiteIsPaper = true;
    // A blank line's one empty token counts as a comment; on paper the gap is as high as a line of
    // the project listing's element, so that a large comment font does not spread the code apart.
    hooks.blankLineElement = kElemProjectFile;
    hooks.breakAtBottom = [this](AreaRecord& area) { return breakHere(area); };
    pos_.FirstLinePage = p.PrintedPageNumber;
    if (numbered) hooks.firstLine = [this](float y, float h) { lineNumber(y, h); };
    if (mode_ == kEmitCode)
        hooks.connectors = [this](const AreaRecord& area, float h, std::int32_t wraps, std::int32_t, float x) {
            connectors(area, h, wraps, x);
        };
    AreaRecord area = areaAt(pos_, numberWidth_);
    // A line that does not fit at the foot of a page starts the next one before it is drawn: the
    // page of the first line, and its top, are taken once that break is behind. The top is where a
    // reader following a link is taken to.
    // Two pointers, held by the hook without an allocation of its own.
    hooks.beforeFirstToken = [this, &area](std::int32_t) {
        pos_.FirstLinePage = printState().PrintedPageNumber;
        if (mode_ != kEmitCode) return;
        placeAwaitedDeclaration(*currentPrinter(), area.Top);
        noteLinePage(record_);
    };
    std::int32_t wraps = layoutRecord(kPrint, record_, area, hooks);
    if (wraps < 0) return 0;
    pos_.TopPos = area.Top;
    if (!p.PrinterValid) p.PrintStatus = kPrintStopped;
    return wraps + 1;
}

}  // namespace

float MeasureContentsRecord(std::int32_t record, const wPos& pos, float& endX) {
    endX = pos.LeftPos;
    if (!currentPrinter()) return 0;
    RecordLayoutHooks hooks = contentsHooks();
    hooks.measureOnly = true;
    hooks.endX = &endX;
    AreaRecord area = areaAt(pos, 0);
    area.Top = 0;
    area.Bottom = std::numeric_limits<float>::max();
    layoutRecord(kPrint, record, area, hooks);
    return area.Top;
}

std::int32_t EmitCodeRecord(std::int32_t record, wPos& pos, std::int32_t& contentsPages, int mode) {
    if (!currentPrinter()) return 0;
    return RecordOnPaper(record, pos, contentsPages, mode).run();
}

}  // namespace hlyd
