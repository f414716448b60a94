#include "platform/printer.h"

namespace hlyd {

namespace {
Printer* current = nullptr;
PrinterSystem* system = nullptr;
}  // namespace

Printer* currentPrinter() { return current; }
void setCurrentPrinter(Printer* printer) {
    current = printer;
    setPrinterSurface(printer);
}

PrinterSystem* printerSystem() { return system; }
void setPrinterSystem(PrinterSystem* printers) { system = printers; }

}  // namespace hlyd
