#include "printing/project_printing.h"

#include <vector>

#include "base/hlyd_error.h"
#include "display/font_metrics.h"
#include "display/token_layout.h"
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
    float white = layoutMetrics().WhiteSpaceSize[kPrint];
    float x = white + pos.LeftPos;
    float h = static_cast<float>(a.Height);
    std::vector<std::string> pieces{line};
    if (x + printer.textWidth(line) > pos.RightPos)
        HlydTKSplitForOutput(line, pieces, pos.RightPos - (white + x) + 1, kPrint);
    for (const std::string& piece : pieces) {
        if (pos.TopPos > p.UsableArea.Bottom && !newProjectPage(pos)) return;
        if (a.BackColor != kWhite)
            printer.filledBox(x, pos.TopPos, x + printer.textWidth(piece), pos.TopPos + h, a.BackColor);
        printer.setCurrentX(x);
        printer.setCurrentY(pos.TopPos);
        printer.print(piece);
        pos.TopPos += h;
    }
}

}  // namespace hlyd
