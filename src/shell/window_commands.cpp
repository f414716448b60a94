#include "shell/window_commands.h"

#include <algorithm>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "display/command_states.h"
#include "files/file_selection.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/mru.h"
#include "settings/settings_store.h"
#include "shell/debug_menu.h"
#include "shell/help_commands.h"
#include "shell/print_commands.h"
#include "shell/project_window_command.h"

namespace hlyd {

namespace {

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

// A list that the viewer lets grow longer than this ends in an item that opens the file list.
constexpr int kViewFileListSize = 8;

void setHelpCommands() {
    bool help = helpAvailable();
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

void showUnlessCancelled() {
    if (theDebug().BabStatus != kStatusCancelled) showSelectedFile();
    HlydMSEnableHLYDControls();
}

void openAndShow(std::int16_t which) {
    GetFilesToProcess(which);
    showUnlessCancelled();
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

void sbButtonsOpen() {
    bool fileOpen = oFile().Count() > 0;
    setCommand("mnuFilClose", fileOpen);
    setCommand("mnuFilCloseAll", fileOpen);
    setCommand("tbrClose", fileOpen);
    setCommand("mnuFileHTML", fileOpen);
    setButtonAndMenu("tbrDisplayOptions", "mnuOptionsDisplay", true);
    setButtonAndMenu("tbrPrintOptions", "mnuOptionsPrint", true);
    setCommand("mnuWinProjectWindow", projectWindowAvailable());
    sbPrintButtonSet();
    sbProcButtonsSet();
    sbFileButtonSet();
}

void sbSetToolBar() {
    MainWindowModel& w = mainWindow();
    for (const MenuItem& item : kMenuItems) w.command(item.name).caption = item.caption;
    setButtonFaces();
    w.command("mnuDebug").visible = hlydSettings().DebugMenu;
    sbDebugMenuSet();
    setViewChecks();
    ShowMRU();
    HlydMSEnableHLYDControls();
}

void mnuFilOpen_Click() { openAndShow(0); }

void openNamedFiles(const std::vector<std::string>& names) {
    std::vector<std::string> absolute;
    absolute.reserve(names.size());
    for (const std::string& name : names) absolute.push_back(os::absolutePath(name));
    openChosenFiles(std::move(absolute));
    showUnlessCancelled();
}

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
