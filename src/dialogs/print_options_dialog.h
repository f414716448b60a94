#pragma once
// The print options form (frmPrintOptions) in the window: three tabs over the print options
// model, which holds its rules.
class QWidget;

namespace hlyd {

struct PrintOptionsModel;

// The form shown modally over `parent`, fitted to the screen; true when its OK let it close.
bool showPrintOptionsForm(QWidget* parent, PrintOptionsModel& m);

}  // namespace hlyd
