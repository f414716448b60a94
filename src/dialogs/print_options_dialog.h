#pragma once
// The print options form (frmPrintOptions) in the window: three tabs over the print options
// model, which holds its rules.
class QWidget;

namespace hlyd {

// Makes the form the one the print options command shows, over `parent`.
void installPrintOptionsDialog(QWidget* parent);

}  // namespace hlyd
