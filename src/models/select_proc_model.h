#pragma once
// The selection dialog of the Print dialog (HLYDSelectProc): the files of the table, or the
// procedures of the current file, to print.
#include <cstdint>
#include <string>
#include <vector>

#include "models/print_dialog_model.h"

namespace hlyd {

struct SelectProcModel {
    std::string Caption = "Proc Selection";
    std::string lblProc;
    std::vector<std::string> lstProc;
    std::vector<bool> selected;  // by position in lstProc
    bool files = false;          // files of the table, else procedures
};

// Captions of the dialog's buttons.
const std::vector<std::pair<std::string, std::string>>& selectProcCaptions();

void cmdAll_Click(SelectProcModel& m);
void cmdNone_Click(SelectProcModel& m);

// Fills the dialog from the procedure array or the files' IsSelected, has the window show it, and
// writes the choice back on OK (a double click on an item is OK too). False when the user cancels
// (or nobody can choose).
bool HlydHLYDSelectProcProcessDialog(bool files);

// cmdSelect of the Print dialog: runs the selection and tells the outcome in lblProcs; returns the
// count selected.
std::int32_t HlydHLYDPrintSelectProc(PrintDialogModel& dialog, bool files);

}  // namespace hlyd
