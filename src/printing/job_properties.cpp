#include "printing/job_properties.h"

#include <cstdint>
#include <string>

#include "base/c_log.h"
#include "platform/printer.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// The printer's value before the assignment is what the printer dialog left there.
void assign(Printer& printer, JobProperty which, std::int16_t value, const char* label, const char* dialogLabel) {
    if (label)
        theLog().LogData(label + std::to_string(value) + dialogLabel + std::to_string(printer.jobProperty(which)));
    printer.setJobProperty(which, value);  // a refusal is the driver's choice; nothing to tell
}

}  // namespace

void SetPrinterProp() {
    Printer* printer = currentPrinter();
    if (!printer) return;
    const HlydSettings& s = hlydSettings();
    assign(*printer, JobProperty::Orientation, s.Orientation, "SetPrinterProp::Orientation=", " CDLG Orientation=");
    assign(*printer, JobProperty::Duplex, s.Duplex, "Duplex=", " CDLG Duplex=");
    assign(*printer, JobProperty::Copies, s.Copies, "Copies=", " CDLG Copies=");
    assign(*printer, JobProperty::PrintQuality, s.PrintQuality, "PrintQuality=", " CDLG PrintQuality=");
    assign(*printer, JobProperty::PaperSize, s.PaperSize, nullptr, nullptr);
}

bool printsBothSides(const Printer& printer) {
    std::int32_t duplex = printer.jobProperty(JobProperty::Duplex);
    return duplex == 2 || duplex == 3;
}

}  // namespace hlyd
