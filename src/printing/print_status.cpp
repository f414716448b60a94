#include "printing/print_status.h"

#include <utility>

#include "platform/ui.h"
#include "printing/print_state.h"

namespace hlyd {

namespace {
std::function<void(const std::string&)> view;
}  // namespace

void setPrintStatusView(std::function<void(const std::string& text)> show) { view = std::move(show); }

void showPrintStatus(const std::string& text) {
    printState().StatusText = text;
    if (view) view(text);
    theUi().processEvents();
}

}  // namespace hlyd
