#pragma once
// The printers of a run that prints only to the built-in "PDF" printer: that printer alone. The
// print service is never asked, so that such a run neither loads its libraries nor waits on its
// answer; a run that names a system printer goes through the desktop's whole printer system.
#include <functional>

#include "platform/printer.h"

namespace hlyd {

class PdfPrinterSystem : public PrinterSystem {
public:
    // `makePrinter` makes the PDF printer: drawn with the toolkit's faces, or with faces read from
    // their files.
    explicit PdfPrinterSystem(std::function<std::unique_ptr<Printer>()> makePrinter)
        : makePrinter_(std::move(makePrinter)) {}
    std::vector<std::string> printerNames() const override;
    // The PDF printer stands for the system's default, which this run does not ask for.
    std::string defaultPrinterName() const override;
    std::unique_ptr<Printer> open(const std::string& name) override;

private:
    std::function<std::unique_ptr<Printer>()> makePrinter_;
};

}  // namespace hlyd
