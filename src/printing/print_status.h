#pragma once
// The print status dialog: the text it shows, its Cancel button, and the one place where the
// window may take a Cancel click while pages are made.
#include <string>

namespace hlyd {

// HLYDPrintStatus as the window shows it while a run goes on.
struct PrintStatusModel {
    std::string Caption = "Print Status";
    std::string lblPage;
    std::string cmdCancel = "Cancel";
    // Stop ends the run at the next page and keeps the pages printed so far, after the user confirms.
    std::string cmdStop = "Stop";
    bool visible = false;
};

PrintStatusModel& printStatusDialog();

// Shows the text and lets pending events in. The window's dialog hears of it through its views;
// without one the text only lands in the state.
void showPrintStatus(const std::string& text);

void openPrintStatus();
void closePrintStatus();
// Cancel asks the run to stop; it stops at the next page change, which drops the document. Closing
// the dialog by the window's menu is the same request.
void cmdCancel_Click();
void printStatusClosedByUser();

}  // namespace hlyd
