#include "platform/qt/qt_printer_system.h"

#include <QPrinterInfo>

#include "platform/qt/qt_printer_adapter.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

// A system printer that happens to be called "PDF" is hidden behind the built-in one: the name
// must mean one printer.
bool isBuiltIn(const QString& name) { return name == QLatin1String(QtPrinter::kPdfPrinterName); }

}  // namespace

std::vector<std::string> QtPrinterSystem::printerNames() const {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        if (!isBuiltIn(name)) names.push_back(toUtf8(name));
    names.push_back(QtPrinter::kPdfPrinterName);
    return names;
}

std::string QtPrinterSystem::defaultPrinterName() const {
    QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() || isBuiltIn(name) ? std::string(QtPrinter::kPdfPrinterName) : toUtf8(name);
}

std::unique_ptr<Printer> QtPrinterSystem::open(const std::string& name) {
    QString wanted = fromUtf8(name);
    if (isBuiltIn(wanted)) return std::make_unique<QtPrinter>();
    if (!QPrinterInfo::availablePrinterNames().contains(wanted)) return nullptr;
    return std::make_unique<QtPrinter>(
            std::make_unique<QPrinter>(QPrinterInfo::printerInfo(wanted), QPrinter::HighResolution));
}

}  // namespace hlyd
