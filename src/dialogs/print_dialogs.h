#pragma once
// The print command's dialogs in the window: Print (HLYDPrint), the selection of files or
// procedures (HLYDSelectProc) and Print Status (HLYDPrintStatus). Their logic is in the printing
// models; these forms only show the models and pass the user's clicks on.
class QDialog;
class QWidget;

namespace hlyd {

struct PrintDialogModel;
struct SelectProcModel;

// Each form shown modally over `parent`; true when its OK let it close.
bool showPrintForm(QWidget* parent, PrintDialogModel& m);
bool showSelectForm(QWidget* parent, SelectProcModel& m);

// HLYDPrintStatus, made once over `parent` and hidden: it shows the print status model while a
// run goes on, anew at each change and as the run opens and closes it.
QDialog* makePrintStatusForm(QWidget* parent);
void refreshPrintStatusForm(QDialog& form);
void setPrintStatusFormShown(QDialog& form, bool shown);

}  // namespace hlyd
