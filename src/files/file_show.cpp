#include "files/file_show.h"

#include <algorithm>
#include <unordered_map>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "files/file_loading.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/files_state.h"
#include "platform/ui.h"
#include "base/message_box.h"

namespace hlyd {

namespace {

constexpr int kWindowMenuSize = 7;

std::string withoutPath(const std::string& name) {
    std::size_t at = name.find_last_of("\\/");
    return at == std::string::npos ? name : name.substr(at + 1);
}

// The list box sorts the names; the first entry of each name learns the position it took.
void fillProcedureList() {
    MainWindowModel& w = mainWindow();
    std::vector<ProcEntry>& procs = yProc();
    std::vector<std::string> names;
    std::unordered_map<std::string, std::size_t> firstOfName;
    for (std::size_t i = 0; i < procs.size(); ++i) {
        names.push_back(procs[i].Name);
        firstOfName.emplace(procs[i].Name, i);
    }
    w.cboProc.AddItems(names);
    for (int i = 0; i < w.cboProc.ListCount(); ++i) procs[firstOfName[w.cboProc.List(i)]].ListIndex = i;
}

void showNothing() {
    MainWindowModel& w = mainWindow();
    w.clearDisplay();
    w.cboProc.Clear();
    w.Caption = theAppInfo().Title;
}

// After an entry left the table: the file now at wCurrentFile (or the last) is shown, or nothing.
void showAfterRemoval() {
    FileTableModule& f = fileTable();
    rebuildWindowMenu();
    if (f.oFile.Count() == 0) {
        mainWindow().clearDisplay();
        f.wCurrentFile = 0;
    }
    std::int16_t next = f.wCurrentFile > f.oFile.Count() ? static_cast<std::int16_t>(f.oFile.Count()) : f.wCurrentFile;
    if (f.oFile.Count() == 0) {
        showNothing();
        mainWindow().enableControls();
        return;
    }
    HlydFLProcessSelectedFile(next);
}

// A file that vanished or became unreadable since it was listed is named to the user and closed,
// also within a project, and the window goes on with the others.
void closeUnreadableFile(std::int16_t wWhich) {
    FileTableModule& f = fileTable();
    const std::string name = f.oFile.Item(wWhich).FileName;
    const std::string reason = f.openFailure;
    f.openFailure.clear();
    theUi().setBusy(false);
    showMessage("The file " + name + " cannot be read (" + reason + ").\n\nIt has been closed.", theAppInfo().Title,
                MsgButtons::OK, MsgIcon::Warning);
    f.oFile.Remove(wWhich);
    f.wCurrentFile = wWhich;
    showAfterRemoval();
}

// A project closes as a whole; closing one of its members would take every other member with it,
// so the user says first whether that is meant. Closing the project's own listing asks nothing.
bool projectMayClose() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return true;
    const cFileDesc& current = f.oFile.Item(f.wCurrentFile);
    if (current.FileType != kFileSource) return true;
    const std::string text = withoutPath(current.FileName) + " is part of the project " +
                             withoutPath(f.oFile.Item(1).FileName) +
                             ", which closes as a whole.\n\nClose the project and all its files?";
    return showMessage(text, theAppInfo().Title, MsgButtons::OKCancel, MsgIcon::Question) == MsgAnswer::OK;
}

}  // namespace

void rebuildWindowMenu() {
    MainWindowModel& w = mainWindow();
    w.windowMenu.clear();
    const FileCollection& files = oFile();
    for (int i = files.Count(), n = 1; i >= 1 && n <= kWindowMenuSize; --i, ++n)
        w.windowMenu.push_back(std::to_string(n) + ". " + trimSpaces(files.Item(i).FileName));
}

void HlydFLProcessSelectedFile(std::int16_t wWhich) {
    TraceScope trace(theDebug().TraceApplication, "HlydFLProcessSelectedFile");
    MainWindowModel& w = mainWindow();
    theUi().setBusy(true);
    w.lblStatus = "Line:";
    w.clearDisplay();
    theUi().processEvents();
    FileTableModule& f = fileTable();
    if (wWhich < 1) {
        w.Caption = theAppInfo().Title;
    } else {
        ProcessSelectedFile(wWhich);
        if (!f.openFailure.empty()) return closeUnreadableFile(wWhich);
        w.Caption = theAppInfo().Title + " - " + withoutPath(f.oFile.Item(wWhich).FileName);
    }
    w.firstLine = 0;
    w.cboProc.Clear();
    if (f.wCurrentFile < 1) f.wCurrentFile = 1;
    bool source = f.oFile.Count() >= f.wCurrentFile && f.oFile.Item(f.wCurrentFile).FileType == kFileSource;
    if (source) fillProcedureList();
    // A new file's view starts at its first record; the emitter sets the range from there.
    w.vsbDisplay = ScrollBarModel{1, 1, 1, 1, 1};
    if (source) w.emitRequestedData();
    else w.showProject();
    theUi().setBusy(false);
}

void cHLYD::CloseFile() {
    TraceScope trace(theDebug().TraceApplication, "HlydFLCloseFile");
    FileTableModule& f = fileTable();
    if (f.projectOpen) {
        if (projectMayClose()) CloseFiles();
        return;
    }
    f.source.close();
    if (f.oFile.Count() > 0 && f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count()) f.oFile.Remove(f.wCurrentFile);
    showAfterRemoval();
}

void cHLYD::CloseFiles() {
    TraceScope trace(theDebug().TraceApplication, "HlydFLCloseFiles");
    FileTableModule& f = fileTable();
    f.source.close();
    mainWindow().windowMenu.clear();
    f.oFile.Clear();
    f.wCurrentFile = 0;
    f.projectOpen = false;
    filesState().projectFileForm.reset();  // its marks belong to the project that closed
    showNothing();
    mainWindow().enableControls();
}

}  // namespace hlyd
