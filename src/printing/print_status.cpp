#include "printing/print_status.h"

#include "files/navigation.h"
#include "platform/ui.h"
#include "platform/views.h"
#include "printing/print_state.h"
#include "printing/printing_state.h"

namespace hlyd {

namespace {
PrintStatusModel& model() { return printingState().status; }

void tellShown() { theViews().printStatusShown(model().visible); }
}  // namespace

PrintStatusModel& printStatusDialog() { return model(); }

void showPrintStatus(const std::string& text) {
    printState().StatusText = text;
    model().lblPage = text;
    theViews().printStatusChanged(text);
    theUi().processEvents();
}

void openPrintStatus() {
    model() = PrintStatusModel{};
    model().visible = true;
    tellShown();
}

void closePrintStatus() {
    model().visible = false;
    tellShown();
}

void cmdCancel_Click() {
    model().cmdCancel = "CANCELLED";
    navigation().runState = kRunCancelled;
}

void printStatusClosedByUser() { cmdCancel_Click(); }

}  // namespace hlyd
