#include "platform/printer.h"

namespace hlyd {

void setCurrentPrinter(Printer* printer) {
    currentSession().ports.printer = printer;
    setPrinterSurface(printer);
}

void setPrinterSystem(PrinterSystem* printers) { currentSession().ports.printers = printers; }

}  // namespace hlyd
