// The procedure table of a file, and of all the files of a project.
#include "printing/contents.h"

#include "display/font_metrics.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/proc_list.h"
#include "platform/printer.h"
#include "printing/code_printing.h"
#include "printing/contents_leader.h"
#include "printing/job_properties.h"
#include "printing/page_change.h"
#include "printing/print_status.h"
#include "printing/printer_fonts.h"
#include "printing/project_printing.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

void newContentsPage(wPos& pos, std::int32_t& contentsPages, bool project) {
    if (project) HlydPHEmitProjectProcContents(pos.TopPos);
    else HlydPHEmitProcContents(pos.TopPos, contentsPages, "PROCEDURE ");
}

// The table of a file's procedures, one entry at a time: an entry that does not fit below the
// last goes to the next page whole, unless it is taller than a page.
class ProcedureTable {
public:
    ProcedureTable(Printer& printer, wPos& pos, std::int32_t& contentsPages, bool project)
        : printer_(printer),
          pos_(pos),
          contentsPages_(contentsPages),
          project_(project),
          a_(printAttributes(kElemProcedures)),
          height_(static_cast<float>(a_.Height)) {}
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
        EmitCodeRecord(record, pos_, contentsPages_, project_ ? kEmitProjectContents : kEmitProcContents);
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
    pos_.RightPos = contentsRightEdge() - numberColumn(printer_, pageText(widest));
    for (std::size_t e = 0; e < procs.size() && p.PrintStatus != kPrintStopped; ++e)
        if (procs[e].ProcPrinted) entry(procs[e], procedureDestination(fileTable().wCurrentFile, static_cast<int>(e)));
}

}  // namespace

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

}  // namespace hlyd
