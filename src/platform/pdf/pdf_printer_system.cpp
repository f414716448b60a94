#include "platform/pdf/pdf_printer_system.h"

namespace hlyd {

std::vector<std::string> PdfPrinterSystem::printerNames() const { return {kPdfPrinterName}; }

std::string PdfPrinterSystem::defaultPrinterName() const { return kPdfPrinterName; }

std::unique_ptr<Printer> PdfPrinterSystem::open(const std::string& name) {
    if (name != kPdfPrinterName) return nullptr;
    return makePrinter_();
}

}  // namespace hlyd
