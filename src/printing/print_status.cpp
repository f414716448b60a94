#include "printing/print_status.h"

#include <utility>

#include "files/navigation.h"
#include "platform/ui.h"
#include "printing/print_state.h"
#include "printing/printing_state.h"

namespace hlyd {

namespace {
std::function<void(const std::string&)>& view() { return printingState().statusView; }
std::function<void(bool)>& shownView() { return printingState().statusShownView; }
PrintStatusModel& model() { return printingState().status; }

void tellShown() {
    if (shownView()) shownView()(model().visible);
}
}  // namespace

PrintStatusModel& printStatusDialog() { return model(); }

void setPrintStatusView(std::function<void(const std::string& text)> show) { view() = std::move(show); }
void setPrintStatusShown(std::function<void(bool shown)> shown) { shownView() = std::move(shown); }

void showPrintStatus(const std::string& text) {
    printState().StatusText = text;
    model().lblPage = text;
    if (view()) view()(text);
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
