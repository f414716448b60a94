#include "printing/printer_errors.h"

#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "platform/printer.h"
#include "printing/print_state.h"

namespace hlyd {

namespace {

constexpr int kSubscript = 9;
constexpr int kPrinterError = 482;

MsgAnswer askWhatToDo(const HlydError& error) {
    Printer* printer = currentPrinter();
    std::string name = printer ? printer->deviceName() : std::string();
    return showMessage(
            "There is an error writing to printer " + name + "\r\n" + error.Description + "What should we do?", "",
            MsgButtons::AbortRetryIgnore, MsgIcon::Question);
}

}  // namespace

void printerStep(const std::function<void()>& step) {
    for (;;) {
        try {
            step();
            return;
        } catch (const HlydError& error) {
            if (error.Number == kSubscript) return;
            if (error.Number == kPrinterError) {
                printState().PrintStatus = kPrintStopped;
                return;
            }
            MsgAnswer answer = askWhatToDo(error);
            if (answer == MsgAnswer::Retry) continue;
            if (answer == MsgAnswer::Ignore) return;
            printState().PrintStatus = kPrintStopped;
            throw;
        }
    }
}

}  // namespace hlyd
