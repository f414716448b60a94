#pragma once
// The Display Options dialog in the window (frmDisplayOptions). Its rules are in the shell's
// display options model; this form shows the model and passes the user's actions on.
class QWidget;

namespace hlyd {

struct DisplayOptionsModel;

// The form shown modally over `parent`, until it closes.
void showDisplayOptionsForm(QWidget* parent, DisplayOptionsModel& m);

}  // namespace hlyd
