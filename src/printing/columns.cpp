#include "printing/columns.h"

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/page_change.h"
#include "settings/attributes.h"
#include "settings/ini_handler.h"

namespace hlyd {

namespace {

bool startsProcedure(std::int32_t record) {
    for (const ProcEntry& e : yProc())
        if (e.FirstRecord == record && e.Name != "<Declarations>" && e.Name != "(Designer Object Definition)")
            return true;
    return false;
}

bool newPage(wPos& pos, std::int32_t record) {
    PrintState& p = printState();
    HlydPHEmitForCode(pos.TopPos, record);
    if (p.PrintStatus == kPrintStopped) return false;
    p.Column.ColumnNumber = 1;
    p.Column.TopMostY = pos.TopPos;
    pos.LeftPos = p.Column.LeftMostX;
    p.Column.XColumn = p.UsableArea.Left;
    if (Printer* printer = currentPrinter()) printer->setCurrentX(p.Column.LeftMostX);
    return true;
}

void columnSeparator(Printer& printer) {
    PrintState& p = printState();
    float x = p.Column.XColumn - static_cast<float>(p.Columns.Gutter) / 2;
    printer.setDrawWidth(5);
    printer.line(x, p.Column.TopMostY, x, p.UsableArea.Bottom,
                 displayAttributes().Elements[kElemHeadersFooters].slot[kPrint].ForeColor);
    printer.setDrawWidth(1);
}

// A column that would run past the area's right edge: told in the log, and in the debugging mode
// the run stops; otherwise the text goes on on a new page.
bool columnFits(wPos& pos, std::int32_t record) {
    PrintState& p = printState();
    float right = p.Column.XColumn + static_cast<float>(p.Columns.Width);
    if (right <= p.UsableArea.Right) return true;
    theLog().LogData(
            " -- Assertion failure\r\nColumn's LeftPos+Column's Width > Page's RightPos\r\nColumn's LeftPos =" +
            numberText(p.Column.XColumn) + "\r\nColumn's Width =" + std::to_string(p.Columns.Width) +
            "\r\nPage's RightPos =" + numberText(p.UsableArea.Right));
    if (theDebug().DontTrapErrors) {
        p.PrintStatus = kPrintAssertFailed;
        raiseInternal("HlydPAPointNextColumn");
    }
    HlydPHEmitForCode(pos.TopPos, record);
    p.Column.TopMostY = pos.TopPos;
    pos.LeftPos = p.Column.LeftMostX;
    if (Printer* printer = currentPrinter()) printer->setCurrentX(p.Column.LeftMostX);
    return p.PrintStatus != kPrintStopped;
}

bool nextColumn(wPos& pos, std::int32_t record) {
    PrintState& p = printState();
    ++p.Column.ColumnNumber;
    pos.TopPos = p.Column.TopMostY;
    p.Column.XColumn += static_cast<float>(p.Columns.Width + p.Columns.Gutter);
    pos.LeftPos = p.Column.XColumn + p.Column.XOffset;
    Printer* printer = currentPrinter();
    if (printer && p.Columns.Separator) columnSeparator(*printer);
    if (printer) {
        printer->setCurrentX(p.Column.XColumn);
        printer->setCurrentY(pos.TopPos);
    }
    return columnFits(pos, record);
}

}  // namespace

void HlydPAPointNextColumn(wPos& pos, std::int32_t record) {
    PrintState& p = printState();
    ColumnPosition& c = p.Column;
    if (p.PageNumber == 0 || record == 1) {
        HlydPHEmitForCode(pos.TopPos, record);
        if (p.PrintStatus == kPrintStopped) return;
        c.ColumnNumber = 1;
        c.LeftMostX = pos.LeftPos;
        c.XColumn = p.UsableArea.Left;
        c.XOffset = c.LeftMostX - p.UsableArea.Left;
        c.TopMostY = pos.TopPos;
    } else {
        bool pageStart = displayAttributes().Format[kPrint].ProcSkip == 'P' && startsProcedure(record);
        bool moved = pageStart || c.ColumnNumber >= p.Columns.Columns ? newPage(pos, record) : nextColumn(pos, record);
        if (!moved) return;
    }
    pos.RightPos = c.XColumn + static_cast<float>(p.Columns.Width);
}

}  // namespace hlyd
