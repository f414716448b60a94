#pragma once
// The job properties of the settings (orientation, duplex, copies, quality, paper) on the printer.
namespace hlyd {

// Puts the settings' job properties on the current printer, logging each beside the value the
// printer held. A value the driver refuses leaves the printer's own.
void SetPrinterProp();

}  // namespace hlyd
