#include "printing/print_state.h"

#include "printing/printing_state.h"

namespace hlyd {

namespace {
PrintState& state() { return printingState().print; }
std::unique_ptr<Printer>& opened() { return printingState().opened; }
}  // namespace

PrintState& printState() { return state(); }

void resetPrintState() {
    installOpenedPrinter(nullptr);
    state() = PrintState{};
}

// The printer in force is replaced before the old one goes, so that nobody is left holding it.
void installOpenedPrinter(std::unique_ptr<Printer> printer) {
    if (printer || currentPrinter() == opened().get()) setCurrentPrinter(printer.get());
    opened() = std::move(printer);
}

}  // namespace hlyd
