#pragma once
// The main window's commands and the rules that switch them on and off; the window binds its
// menu items and buttons to the command states of the model by name.
#include <string>

namespace hlyd {

void HlydMSDisableHLYDControls();
void HlydMSEnableHLYDControls();
void sbProcButtonsSet();
void sbFileButtonSet();
void sbButtonsOpen();
// Builds the menu items and toolbar buttons with their captions and tips.
void sbSetToolBar();

void mnuFilOpen_Click();
void mnuFilClose_Click();
void mnuFilCloseAll_Click();
void mnuFileMRU_Click(int position);
void mnuViewToolbar_Click();
void mnuViewToolTips_Click();
void mnuViewStatus_Click();

// "1. name" for the open files, for the View menu (LoadViewMenu).
void LoadViewMenu();

}  // namespace hlyd
