#pragma once
// The window's print commands and the rule that switches them on and off.
namespace hlyd {

// Print, Print This Procedure and the print menu item follow the printer's standing: they need an
// open file, a printer that is there and can print, and no run going on. With `tellFonts` a
// printer whose fonts do not suit is explained to the user.
void sbPrintButtonSet(bool tellFonts = false);

void mnuFilPrint_Click();
void mnuFilPrintSetup_Click();
void tbrPrintThisProcedure_Click();
// The print options, from the menu and from the toolbar.
void mnuOptionsPrint_Click();

}  // namespace hlyd
