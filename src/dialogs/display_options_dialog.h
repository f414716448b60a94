#pragma once
// The Display Options dialog in the window (frmDisplayOptions). Its rules are in the shell's
// display options model; this form shows the model and passes the user's actions on.
class QWidget;

namespace hlyd {

// Makes the form the view of the Display Options command, over `parent`.
void installDisplayOptionsDialog(QWidget* parent);

}  // namespace hlyd
