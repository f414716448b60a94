#include "models/select_proc_model.h"

#include <algorithm>

#include "files/file_table.h"
#include "platform/views.h"
#include "printing/print_state.h"

namespace hlyd {

namespace {

void fillFiles(SelectProcModel& m) {
    m.Caption = "Select Files to Print";
    m.lblProc = "Files";
    FileCollection& files = oFile();
    for (int i = 1; i <= files.Count(); ++i) {
        m.lstProc.push_back(files.Item(i).FileName);
        m.selected.push_back(files.Item(i).IsSelected);
    }
}

void fillProcedures(SelectProcModel& m) {
    m.Caption = "Select Procs to Print";
    m.lblProc = "Procedures";
    PrintState& p = printState();
    const std::vector<ProcEntry>& procs = yProc();
    p.SelectedProcs.resize(procs.size(), 0);
    for (std::size_t e = 0; e < procs.size(); ++e) {
        m.lstProc.push_back(procs[e].Name);
        m.selected.push_back(p.SelectedProcs[e] != 0);
    }
}

void writeBack(const SelectProcModel& m) {
    if (m.files) {
        FileCollection& files = oFile();
        for (int i = 1; i <= files.Count(); ++i) files.Item(i).IsSelected = m.selected[i - 1];
        return;
    }
    PrintState& p = printState();
    for (std::size_t e = 0; e < m.selected.size(); ++e) p.SelectedProcs[e] = m.selected[e] ? 1 : 0;
}

std::string countLine(bool files, std::int32_t count, std::size_t all) {
    if (count == 0) return files ? "No files selected." : "Nothing selected.";
    if (static_cast<std::size_t>(count) == all) return files ? "All files selected." : "Entire file selected.";
    return std::to_string(count) + (files ? " Files selected." : " Procs selected.");
}

}  // namespace

const std::vector<std::pair<std::string, std::string>>& selectProcCaptions() {
    static const std::vector<std::pair<std::string, std::string>> captions = {
            {"cmdAll", "&All"}, {"cmdNone", "&None"}, {"cmdOK", "OK"}, {"cmdCancel", "Cancel"}, {"cmdHelp", "&Help"},
    };
    return captions;
}

void cmdAll_Click(SelectProcModel& m) { std::fill(m.selected.begin(), m.selected.end(), true); }
void cmdNone_Click(SelectProcModel& m) { std::fill(m.selected.begin(), m.selected.end(), false); }

bool HlydHLYDSelectProcProcessDialog(bool files) {
    SelectProcModel m;
    m.files = files;
    if (files) fillFiles(m);
    else fillProcedures(m);
    if (!theViews().showSelectProc(m)) return false;
    writeBack(m);
    return true;
}

std::int32_t HlydHLYDPrintSelectProc(PrintDialogModel& dialog, bool files) {
    PrintState& p = printState();
    p.ProcsSelected = false;
    if (!HlydHLYDSelectProcProcessDialog(files)) return 0;
    p.ProcsSelected = true;
    std::int32_t count = 0;
    std::size_t all = 0;
    if (files) {
        FileCollection& list = oFile();
        all = static_cast<std::size_t>(list.Count());
        for (int i = 1; i <= list.Count(); ++i) count += list.Item(i).IsSelected ? 1 : 0;
    } else {
        all = p.SelectedProcs.size();
        count = static_cast<std::int32_t>(
                std::count_if(p.SelectedProcs.begin(), p.SelectedProcs.end(), [](std::int16_t s) { return s != 0; }));
    }
    dialog.lblProcs = countLine(files, count, all);
    return count;
}

}  // namespace hlyd
