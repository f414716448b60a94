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
#include "files/command_ids.h"

namespace hlyd {

namespace {

struct MenuItem {
    const char* name;
    const char* caption;
};

constexpr MenuItem kMenuItems[] = {
        {kMnuFile, "&File"},
        {kMnuFilOpen, "&Open..."},
        {kMnuFilClose, "&Close"},
        {kMnuFilCloseAll, "Close &All"},
        {kMnuFilPrint, "&Print..."},
        {kMnuFilPrintSetup, "Print &Setup..."},
        {kMnuFileHTML, "Save as &HTML"},
        {kMnuFileHTMLSite, "Save as HTML Si&te..."},
        {kMnuFilExit, "E&xit"},
        {kMnuView, "&View"},
        {kMnuViewProc0, "Next Procedure"},
        {kMnuViewProc1, "Prior Procecdure"},  // misspelt, as it has always read
        {kMnuViewFile0, "Next File"},
        {kMnuViewFile1, "Prior File"},
        {kMnuViewToolbar, "&Toolbar"},
        {kMnuViewToolTips, "T&oolTips"},
        {kMnuViewStatus, "&Status Bar"},
        {kMnuOptionsDisplay, "&Display Options"},
        {kMnuOptionsPrint, "&Print Options"},
        {kMnuWindow, "&Window"},
        {kMnuWinProjectWindow, "&Project Window"},
        {kMnuDebug, "&Debug"},
        {kMnuHelp, "&Help"},
        {kMnuHelContents, "&Help Topics..."},
        {kMnuHelSearch, "&Search For Help On..."},
        {kMnuHelHelp, "He&lp On Help"},
        {kMnuHelAbout, "&About Halyard..."},
};

// A list that the viewer lets grow longer than this ends in an item that opens the file list.
constexpr int kViewFileListSize = 8;

void setHelpCommands() {
    bool help = helpAvailable();
    for (const char* name : {kTbrHelp, kMnuHelContents, kMnuHelSearch, kMnuHelHelp}) setCommand(name, help);
}

void setViewChecks() {
    const HlydSettings& s = hlydSettings();
    MainWindowModel& w = mainWindow();
    w.command(kMnuViewToolbar).checked = s.ToolBar;
    w.command(kMnuViewToolTips).checked = s.ToolTips;
    w.command(kMnuViewStatus).checked = s.StatusBar;
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
    setCommand(kMnuFilClose, fileOpen);
    setCommand(kMnuFilCloseAll, fileOpen);
    setCommand(kTbrClose, fileOpen);
    setCommand(kMnuFileHTML, fileOpen);
    setCommand(kMnuFileHTMLSite, fileOpen);
    setButtonAndMenu(kTbrDisplayOptions, kMnuOptionsDisplay, true);
    setButtonAndMenu(kTbrPrintOptions, kMnuOptionsPrint, true);
    setCommand(kMnuWinProjectWindow, projectWindowAvailable());
    sbPrintButtonSet();
    sbProcButtonsSet();
    sbFileButtonSet();
}

void sbSetToolBar() {
    MainWindowModel& w = mainWindow();
    for (const MenuItem& item : kMenuItems) w.command(item.name).caption = item.caption;
    setButtonFaces();
    w.command(kMnuDebug).visible = hlydSettings().DebugMenu;
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

void mnuViewToolbar_Click() { toggleSetting(hlydSettings().ToolBar, kMnuViewToolbar); }
void mnuViewToolTips_Click() { toggleSetting(hlydSettings().ToolTips, kMnuViewToolTips); }
void mnuViewStatus_Click() { toggleSetting(hlydSettings().StatusBar, kMnuViewStatus); }

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
