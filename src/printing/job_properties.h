#pragma once
// The job properties of the settings (orientation, duplex, copies, quality, paper) on the printer.
namespace hlyd {

class Printer;

// True when the printer prints on both sides (Duplex 2 or 3).
bool printsBothSides(const Printer& printer);

// Puts the settings' job properties on the current printer, logging each beside the value the
// printer held. A value the driver refuses leaves the printer's own.
void SetPrinterProp();

}  // namespace hlyd
