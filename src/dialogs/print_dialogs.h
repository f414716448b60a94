#pragma once
// The print command's dialogs in the window: Print (HLYDPrint), the selection of files or
// procedures (HLYDSelectProc) and Print Status (HLYDPrintStatus). Their logic is in the printing
// models; these forms only show the models and pass the user's clicks on.
class QWidget;

namespace hlyd {

// Makes the dialogs those of the print command, over `parent`.
void installPrintDialogs(QWidget* parent);

}  // namespace hlyd
