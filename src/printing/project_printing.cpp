#include "printing/project_printing.h"

#include "base/hlyd_error.h"
#include "display/font_metrics.h"
#include "display/project_line_layout.h"
#include "files/file_table.h"
#include "files/project_file.h"
#include "platform/printer.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/printer_fonts.h"

namespace hlyd {

namespace {

AttributeRecord& projectElement() { return displayAttributes().Elements[kElemProjectFile].slot[kPrint]; }

cProjectFile& projectOfCurrentFile() {
    const FileTableModule& files = fileTable();
    const std::string& name = files.oFile.Item(files.wCurrentFile).FileName;
    for (int i = 1; i <= oProjectFiles().Count(); ++i)
        if (oProjectFiles().Item(i).FileName == name) return oProjectFiles().Item(i);
    throw HlydError(kInternalError, "Invalid Project Requested", "EmitProjectFile");
}

bool newProjectPage(wPos& pos) {
    HlydPHEmitForProject(pos.TopPos);
    HlydPASetAttributes(projectElement());
    return printState().PrintStatus != kPrintStopped;
}

}  // namespace

void EmitProjectFile(wPos& pos) {
    PrintState& p = printState();
    if (!currentPrinter()) return;
    SetPrinterProp();
    cProjectFile& project = projectOfCurrentFile();
    pos.LeftPos = p.UsableArea.Left;
    pos.RightPos = p.UsableArea.Right;
    float h = static_cast<float>(projectElement().Height);
    for (const cProjectLine& line : project.ProjectRecords) {
        if ((p.PageNumber == 0 || pos.TopPos + h > p.UsableArea.Bottom) && !newProjectPage(pos)) return;
        HlydPASetAttributes(projectElement());
        if (p.PrintStatus == kPrintStopped) return;
        EmitProjectRecord(line.AsRecord, pos);
        if (p.PrintStatus == kPrintStopped) return;
    }
}

void EmitProjectRecord(const std::string& line, wPos& pos) {
    Printer& printer = *currentPrinter();
    PrintState& p = printState();
    AttributeRecord& a = projectElement();
    AreaRecord area;
    area.Left = pos.LeftPos;
    area.Right = pos.RightPos;
    area.Top = pos.TopPos;
    area.Bottom = p.UsableArea.Bottom;
    ProjectLineHooks hooks;
    hooks.destination = kPrint;
    hooks.lineHeight = static_cast<float>(a.Height);
    hooks.indent = layoutMetrics().WhiteSpaceSize[kPrint];
    hooks.textWidth = [&printer](const std::string& piece) { return printer.textWidth(piece); };
    hooks.blankLinesDrawn = true;
    hooks.breakAtBottom = [&](AreaRecord& at) {
        pos.TopPos = at.Top;
        bool goesOn = newProjectPage(pos);
        at.Top = pos.TopPos;
        at.Bottom = p.UsableArea.Bottom;
        return goesOn;
    };
    // White is the paper itself: no box is drawn for it.
    hooks.drawPiece = [&](const std::string& piece, float x, float y, bool) {
        if (a.BackColor != kWhite)
            printer.filledBox(x, y, x + printer.textWidth(piece), y + hooks.lineHeight, a.BackColor);
        printer.setCurrentX(x);
        printer.setCurrentY(y);
        printer.print(piece);
    };
    layoutProjectLine(line, area, hooks);
    pos.TopPos = area.Top;
}

}  // namespace hlyd
