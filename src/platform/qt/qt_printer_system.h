#pragma once
// The printers of this desktop: the system's (as Qt's print support finds them; none on a machine
// without a print service) and the built-in "PDF" printer, which is always there.
#include "platform/printer.h"

namespace hlyd {

class QtPrinterSystem : public PrinterSystem {
public:
    std::vector<std::string> printerNames() const override;
    // The system's default printer, else "PDF".
    std::string defaultPrinterName() const override;
    std::unique_ptr<Printer> open(const std::string& name) override;
};

}  // namespace hlyd
