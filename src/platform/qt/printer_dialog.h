#pragma once
// The printer dialog of the desktop: the printers of the machine (the system's and the built-in
// "PDF"), the orientation, the paper and duplex where the printer has them, and the number of
// copies.
#include <QWidget>

#include "platform/ui.h"

namespace hlyd {

// True on OK, with the choice written into `request`.
bool runPrinterDialog(QWidget* parent, PrinterDialogRequest& request);

}  // namespace hlyd
