#pragma once
// The main window's commands and the rules that switch them on and off; the window binds its
// menu items and buttons to the command states of the model by name.
//
// Names in mainWindow().commands (caption, tip, enabled, visible, checked):
//   Menus:   mnuFile, mnuView, mnuWindow, mnuDebug (visible by the DebugMenu setting), mnuHelp.
//   File:    mnuFilOpen, mnuFilClose, mnuFilCloseAll, mnuFilPrint, mnuFilPrintSetup, mnuFileHTML,
//            mnuFilExit. The recent files are mainWindow().mruCaptions (7 entries, "&1 name";
//            an empty entry is a hidden item).
//   View:    mnuViewProc0 (next procedure), mnuViewProc1 (prior), mnuViewFile0 (next file),
//            mnuViewFile1 (prior), mnuViewToolbar, mnuViewToolTips, mnuViewStatus, mnuOptionsDisplay,
//            mnuOptionsPrint. The check marks of the three toggles say whether the toolbar, its tips
//            and the status bar are shown. The open files are mainWindow().viewFileList: item i
//            (from 0) is file i + 1, and with nine or more files the ninth item is "&More Files ... ",
//            which asks frmFileList.
//   Window:  mnuWinProjectWindow. Help: mnuHelContents, mnuHelSearch, mnuHelHelp, mnuHelAbout.
//   Debug:   the items of debugMenuItems() (shell/debug_menu.h); the toggles' `checked` follows
//            their switches.
//   Toolbar, in this order: tbrOpen, tbrClose, tbrPrint, tbrPrintOptions, tbrDisplayOptions,
//            tbrPriorProcedure, tbrNextProcedure, tbrPrintThisProcedure, tbrProcedures, tbrPriorFile,
//            tbrNextFile, tbrHelp. Their `tip` follows `enabled`.
//   cboProc: whether the procedure list takes input.
// Separators are the window's business. While a long operation runs, mainWindow().controlsEnabled
// is false and the window takes no input at all.
#include <string>
#include <vector>

namespace hlyd {

void HlydMSDisableHLYDControls();
void HlydMSEnableHLYDControls();
// Points the model's enableControls / disableControls hooks, which the long operations call, at
// the two above. A window that wraps the hooks calls these itself.
void installCommandHooks();
void sbButtonsOpen();
// Builds the menu items and toolbar buttons with their captions and tips.
void sbSetToolBar();

void mnuFilOpen_Click();
// Files named when the window was started (a desktop's double-click), opened as Open would.
void openNamedFiles(const std::vector<std::string>& names);
void mnuFilClose_Click();
void mnuFilCloseAll_Click();
void mnuFileMRU_Click(int position);
void mnuViewToolbar_Click();
void mnuViewToolTips_Click();
void mnuViewStatus_Click();

// "1. name" for the open files, for the View menu (LoadViewMenu).
void LoadViewMenu();

}  // namespace hlyd
