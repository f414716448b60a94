#include "platform/qt/pdf_printer_system.h"

#include "platform/qt/qt_printer.h"

namespace hlyd {

std::vector<std::string> PdfPrinterSystem::printerNames() const { return {QtPrinter::kPdfPrinterName}; }

std::string PdfPrinterSystem::defaultPrinterName() const { return QtPrinter::kPdfPrinterName; }

std::unique_ptr<Printer> PdfPrinterSystem::open(const std::string& name) {
    if (name != QtPrinter::kPdfPrinterName) return nullptr;
    return std::make_unique<QtPrinter>();
}

}  // namespace hlyd
