#include "shell/window_commands.h"

#include <algorithm>

#include "files/file_selection.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "platform/os.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/c_debug.h"
#include "shell/c_log.h"
#include "shell/debug_menu.h"
#include "shell/main_window_model.h"
#include "shell/mru.h"
#include "shell/text_format.h"

namespace hlyd {

namespace {

struct ButtonFace {
    const char* name;
    const char* caption;
    const char* tipEnabled;
    const char* tipDisabled;
};

constexpr ButtonFace kButtons[] = {
    {"tbrOpen", "Open", "Open a file or project for processing", ""},
    {"tbrClose", "Close", "Close this file", "Not available unless a file is open"},
    {"tbrPrint", "Print", "Print this file", "Printing not currently available"},
    {"tbrPrintOptions", "Print Options", "Set Halyard Print Options ", ""},
    {"tbrDisplayOptions", "Display Options", "Set Halyard Display Options ", ""},
    {"tbrPriorProcedure", "Prior Procedure", "Display the Prior procedure in File", "Not available"},
    {"tbrNextProcedure", "Next Procedure", "Display the Next procedure in File", "Not available"},
    {"tbrPrintThisProcedure", "Print This Procedure", "Print the current procedure ", "Not available"},
    {"tbrProcedures", "Procedures", "Select Procedure to View", "Not available"},
    {"tbrPriorFile", "Prior File", "Display the Prior File in list", "Not available"},
    {"tbrNextFile", "Next File", "Display the Next File in list", "Not available"},
    {"tbrHelp", "Help", "Help", "Not available - Help file Missing"},
};

struct MenuItem {
    const char* name;
    const char* caption;
};

constexpr MenuItem kMenuItems[] = {
    {"mnuFile", "&File"},
    {"mnuFilOpen", "&Open..."},
    {"mnuFilClose", "&Close"},
    {"mnuFilCloseAll", "Close &All"},
    {"mnuFilPrint", "&Print..."},
    {"mnuFilPrintSetup", "Print &Setup..."},
    {"mnuFileHTML", "Save as &HTML"},
    {"mnuFilExit", "E&xit"},
    {"mnuView", "&View"},
    {"mnuViewProc0", "Next Procedure"},
    {"mnuViewProc1", "Prior Procecdure"},  // misspelt, as it has always read
    {"mnuViewFile0", "Next File"},
    {"mnuViewFile1", "Prior File"},
    {"mnuViewToolbar", "&Toolbar"},
    {"mnuViewToolTips", "T&oolTips"},
    {"mnuViewStatus", "&Status Bar"},
    {"mnuOptionsDisplay", "&Display Options"},
    {"mnuOptionsPrint", "&Print Options"},
    {"mnuWindow", "&Window"},
    {"mnuWinProjectWindow", "&Project Window"},
    {"mnuDebug", "&Debug"},
    {"mnuHelp", "&Help"},
    {"mnuHelContents", "&Help Topics..."},
    {"mnuHelSearch", "&Search For Help On..."},
    {"mnuHelHelp", "He&lp On Help"},
    {"mnuHelAbout", "&About Halyard..."},
};

// Commands whose dialogs or printing are not part of this build yet.
constexpr const char* kNotYetAvailable[] = {
    "mnuFilPrint",    "mnuFilPrintSetup", "mnuOptionsDisplay",     "mnuOptionsPrint", "mnuWinProjectWindow",
    "tbrPrint",       "tbrPrintOptions",  "tbrPrintThisProcedure", "tbrDisplayOptions",
};

// A list that the viewer lets grow longer than this ends in an item that opens the file list.
constexpr int kViewFileListSize = 8;

const ButtonFace* buttonFace(const std::string& name) {
    for (const ButtonFace& face : kButtons)
        if (name == face.name) return &face;
    return nullptr;
}

void setCommand(const std::string& name, bool enabled) {
    CommandState& c = mainWindow().command(name);
    c.enabled = enabled;
    if (const ButtonFace* face = buttonFace(name)) c.tip = enabled ? face->tipEnabled : face->tipDisabled;
}

void setButtonAndMenu(const std::string& button, const std::string& menu, bool enabled) {
    setCommand(button, enabled);
    setCommand(menu, enabled);
}

bool helpFileThere() {
    const std::string& help = hlydMain().HelpFile;
    return !help.empty() && os::fileInfo(help).exists();
}

void setHelpCommands() {
    bool help = helpFileThere();
    for (const char* name : {"tbrHelp", "mnuHelContents", "mnuHelSearch", "mnuHelHelp"}) setCommand(name, help);
}

void setViewChecks() {
    const HlydSettings& s = hlydSettings();
    MainWindowModel& w = mainWindow();
    w.command("mnuViewToolbar").checked = s.ToolBar;
    w.command("mnuViewToolTips").checked = s.ToolTips;
    w.command("mnuViewStatus").checked = s.StatusBar;
}

void toggleSetting(bool& setting, const std::string& menu) {
    setting = !setting;
    mainWindow().command(menu).checked = setting;
}

// After a selection the caller shows the file it points at: the one after wCurrentFile.
void showSelectedFile() {
    const FileTableModule& f = fileTable();
    int count = f.oFile.Count();
    if (count == 0) return;
    HlydFLProcessSelectedFile(static_cast<std::int16_t>(std::clamp(f.wCurrentFile + 1, 1, count)));
}

void openAndShow(std::int16_t which) {
    GetFilesToProcess(which);
    if (theDebug().BabStatus != 8) showSelectedFile();
    HlydMSEnableHLYDControls();
}

}  // namespace

void HlydMSDisableHLYDControls() { mainWindow().controlsEnabled = false; }

void HlydMSEnableHLYDControls() {
    mainWindow().controlsEnabled = true;
    sbButtonsOpen();
    setHelpCommands();
    LoadViewMenu();
}

void installCommandHooks() {
    MainWindowModel& w = mainWindow();
    w.enableControls = [] { HlydMSEnableHLYDControls(); };
    w.disableControls = [] { HlydMSDisableHLYDControls(); };
}

void sbProcButtonsSet() {
    const SortedListModel& list = mainWindow().cboProc;
    bool listUsable = fileTable().wCurrentFile >= 1 && list.ListCount() >= 1;
    setCommand("cboProc", listUsable);
    setCommand("tbrProcedures", listUsable);
    int last = list.ListCount() - 1;
    bool atFirst = list.ListIndex == 0;
    // A last line " ..." stands for procedures not read yet: there is more to go to.
    bool atLast = listUsable && list.ListIndex == last && trimSpaces(list.List(last)) != "...";
    // A list of one entry (declarations only, or one procedure) has nowhere to go, wherever the
    // list stands; the bare position rule would offer a step that does nothing.
    bool somewhereToGo = listUsable && list.ListCount() >= 2;
    setButtonAndMenu("tbrPriorProcedure", "mnuViewProc1", somewhereToGo && !atFirst);
    setButtonAndMenu("tbrNextProcedure", "mnuViewProc0", somewhereToGo && !atLast);
}

void sbFileButtonSet() {
    const FileTableModule& f = fileTable();
    // Only a file that is shown has neighbours: a selection that left the table empty (a
    // project with no readable member) may leave wCurrentFile anywhere.
    bool shown = f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count();
    setButtonAndMenu("tbrPriorFile", "mnuViewFile1", shown && f.wCurrentFile > 1);
    setButtonAndMenu("tbrNextFile", "mnuViewFile0", shown && f.wCurrentFile != f.oFile.Count());
}

void sbButtonsOpen() {
    bool fileOpen = oFile().Count() > 0;
    setCommand("mnuFilClose", fileOpen);
    setCommand("mnuFilCloseAll", fileOpen);
    setCommand("tbrClose", fileOpen);
    setCommand("mnuFileHTML", fileOpen);
    for (const char* name : kNotYetAvailable) setCommand(name, false);
    sbProcButtonsSet();
    sbFileButtonSet();
}

void sbSetToolBar() {
    MainWindowModel& w = mainWindow();
    for (const MenuItem& item : kMenuItems) w.command(item.name).caption = item.caption;
    for (const ButtonFace& face : kButtons) {
        w.command(face.name).caption = face.caption;
        setCommand(face.name, w.command(face.name).enabled);
    }
    w.command("mnuDebug").visible = hlydSettings().DebugMenu;
    sbDebugMenuSet();
    setViewChecks();
    ShowMRU();
    HlydMSEnableHLYDControls();
}

void mnuFilOpen_Click() { openAndShow(0); }

void mnuFilClose_Click() {
    cHLYD::CloseFile();
    HlydMSEnableHLYDControls();
}

void mnuFilCloseAll_Click() {
    cHLYD::CloseFiles();
    HlydMSEnableHLYDControls();
}

void mnuFileMRU_Click(int position) {
    if (position < 1 || position > 7) return;
    theLog().LogData("MRU=" + std::to_string(position) + " FileName(MRU)=" + hlydSettings().MRU[position]);
    if (offerRemovalOfMissingRecentFile(position)) return;
    openAndShow(static_cast<std::int16_t>(position));
}

void mnuViewToolbar_Click() { toggleSetting(hlydSettings().ToolBar, "mnuViewToolbar"); }
void mnuViewToolTips_Click() { toggleSetting(hlydSettings().ToolTips, "mnuViewToolTips"); }
void mnuViewStatus_Click() { toggleSetting(hlydSettings().StatusBar, "mnuViewStatus"); }

void LoadViewMenu() {
    std::vector<std::string>& items = mainWindow().viewFileList;
    items.clear();
    const FileCollection& files = oFile();
    bool tooMany = files.Count() > kViewFileListSize;
    int shown = tooMany ? kViewFileListSize : files.Count();
    for (int i = 1; i <= shown; ++i) items.push_back(std::to_string(i) + ". " + files.Item(i).FileName);
    if (tooMany) items.push_back("&More Files ... ");
}

}  // namespace hlyd
