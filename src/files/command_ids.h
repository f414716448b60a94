#pragma once

// The window's commands by their control names: the keys of MainWindowModel::commands, the names
// the window gives its menu items and toolbar buttons, and the names the error report and the event
// log print. One constant per command, so that a misspelt name fails to build instead of switching
// nothing.

namespace hlyd {

inline constexpr char kMnuDebug[] = "mnuDebug";
inline constexpr char kMnuDebugDisableErrorTraps[] = "mnuDebugDisableErrorTraps";
inline constexpr char kMnuDebugDisableFixDataErrors[] = "mnuDebugDisableFixDataErrors";
inline constexpr char kMnuDebugLogClasses[] = "mnuDebugLogClasses";
inline constexpr char kMnuDebugLogClose[] = "mnuDebugLogClose";
inline constexpr char kMnuDebugLogEvents[] = "mnuDebugLogEvents";
inline constexpr char kMnuDebugLogOpen[] = "mnuDebugLogOpen";
inline constexpr char kMnuDebugLogTracePackages[] = "mnuDebugLogTracePackages";
inline constexpr char kMnuDebugMouseEvents[] = "mnuDebugMouseEvents";
inline constexpr char kMnuDebugOpenAppendLog[] = "mnuDebugOpenAppendLog";
inline constexpr char kMnuDebugTraceApp[] = "mnuDebugTraceApp";
inline constexpr char kMnuEdit[] = "mnuEdit";
inline constexpr char kMnuEditCopy[] = "mnuEditCopy";
inline constexpr char kMnuEditFind[] = "mnuEditFind";
inline constexpr char kMnuEditFindAll[] = "mnuEditFindAll";
inline constexpr char kMnuEditFindNext[] = "mnuEditFindNext";
inline constexpr char kMnuEditFindPrevious[] = "mnuEditFindPrevious";
inline constexpr char kMnuEditGoToDeclaration[] = "mnuEditGoToDeclaration";
inline constexpr char kMnuEditSelectAll[] = "mnuEditSelectAll";
inline constexpr char kMnuEditUsesOfName[] = "mnuEditUsesOfName";
inline constexpr char kMnuFilClose[] = "mnuFilClose";
inline constexpr char kMnuFilCloseAll[] = "mnuFilCloseAll";
inline constexpr char kMnuFilExit[] = "mnuFilExit";
inline constexpr char kMnuFilOpen[] = "mnuFilOpen";
inline constexpr char kMnuFilPrint[] = "mnuFilPrint";
inline constexpr char kMnuFilPrintSetup[] = "mnuFilPrintSetup";
inline constexpr char kMnuFile[] = "mnuFile";
inline constexpr char kMnuFileHTML[] = "mnuFileHTML";
inline constexpr char kMnuFileHTMLSite[] = "mnuFileHTMLSite";
inline constexpr char kMnuHelAbout[] = "mnuHelAbout";
inline constexpr char kMnuHelContents[] = "mnuHelContents";
inline constexpr char kMnuHelHelp[] = "mnuHelHelp";
inline constexpr char kMnuHelSearch[] = "mnuHelSearch";
inline constexpr char kMnuHelp[] = "mnuHelp";
inline constexpr char kMnuOptionsDisplay[] = "mnuOptionsDisplay";
inline constexpr char kMnuOptionsPrint[] = "mnuOptionsPrint";
inline constexpr char kMnuPopupMenu[] = "mnuPopupMenu";
inline constexpr char kMnuView[] = "mnuView";
inline constexpr char kMnuViewFile0[] = "mnuViewFile0";
inline constexpr char kMnuViewFile1[] = "mnuViewFile1";
inline constexpr char kMnuViewProc0[] = "mnuViewProc0";
inline constexpr char kMnuViewProc1[] = "mnuViewProc1";
inline constexpr char kMnuViewStatus[] = "mnuViewStatus";
inline constexpr char kMnuViewToolTips[] = "mnuViewToolTips";
inline constexpr char kMnuViewToolbar[] = "mnuViewToolbar";
inline constexpr char kMnuWinProjectWindow[] = "mnuWinProjectWindow";
inline constexpr char kMnuWindow[] = "mnuWindow";
inline constexpr char kTbrClose[] = "tbrClose";
inline constexpr char kTbrDisplayOptions[] = "tbrDisplayOptions";
inline constexpr char kTbrHelp[] = "tbrHelp";
inline constexpr char kTbrNextFile[] = "tbrNextFile";
inline constexpr char kTbrNextProcedure[] = "tbrNextProcedure";
inline constexpr char kTbrOpen[] = "tbrOpen";
inline constexpr char kTbrPrint[] = "tbrPrint";
inline constexpr char kTbrPrintOptions[] = "tbrPrintOptions";
inline constexpr char kTbrPrintThisProcedure[] = "tbrPrintThisProcedure";
inline constexpr char kTbrPriorFile[] = "tbrPriorFile";
inline constexpr char kTbrPriorProcedure[] = "tbrPriorProcedure";
inline constexpr char kTbrProcedures[] = "tbrProcedures";
inline constexpr char kTbrToolBar[] = "tbrToolBar";
inline constexpr char kTbrToolBarFiles[] = "tbrToolBarFiles";

}  // namespace hlyd
