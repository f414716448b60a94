// The save routines: each dialog's group of keys, the element attributes, the debug keys, the
// window and printer state, the full save; and the load of start-up that may end in a full save.
#include "base/app_info.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "platform/os.h"
#include "settings/profile_file.h"
#include "settings/settings_keys.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// The settings directory exists and takes a new file; otherwise the reason, for the user.
std::string settingsDirectoryProblem() {
    std::string dir = settingsDirectory();
    if (!os::makeDirectories(dir)) return "the directory cannot be made";
    std::string probe = dir + "/.hlyd-write-test-" + std::to_string(os::processId());
    os::OutputFile out;
    if (int e = out.open(probe, false); e != 0) return "the directory cannot be written: " + os::errorText(e);
    out.close();
    os::removeFile(probe);
    return {};
}

// A settings file the user made read-only is left as it is: a save would be refused anyway.
std::string settingsFileProblem(const std::string& path) {
    os::FileInfo info = os::fileInfo(path);
    if (info.exists() && !info.regular()) return path + " is not a regular file";
    if (info.exists() && !info.writableByMode) return path + " is read-only";
    return {};
}

// Once in a run, whether start-up found the place unwritable or a later save failed: a user who
// was told does not want to hear it at every save.
void tellSettingsNotKept(const std::string& place, const std::string& reason, const std::string& consequence) {
    HlydSettings& s = hlydSettings();
    if (s.SettingsLossTold) return;
    s.SettingsLossTold = true;
    const std::string& title = theAppInfo().Title;
    showMessage(title + " cannot save its settings in " + place + " (" + reason + ").\n\n" + consequence, title,
                MsgButtons::OK, MsgIcon::Warning);
}

// The reason a save failed after start-up, as far as it can be seen now.
std::string saveFailureReason(const std::string& path) {
    std::string reason = settingsDirectoryProblem();
    if (reason.empty()) reason = settingsFileProblem(path);
    return reason.empty() ? "the file could not be written" : reason;
}

}  // namespace

void sbDisplayINISave() { writeSettingGroups(kSaveDisplay); }
void sbPrintINISave() { writeSettingGroups(kSavePrint); }
void sbPrintOptionsINISave() { writeSettingGroups(kSavePrintOptions); }
void saveElementAttributes(Destination displayOrPrint, int element) {
    writeSettingGroups(kSaveElement, displayOrPrint, element);
}
void saveDebugSettings() { writeSettingGroups(kSaveDebug); }
void saveWindowState() { writeSettingGroups(kSaveWindow); }
void savePrinterState() { writeSettingGroups(kSavePrinterState); }

void saveAllSettings() {
    HlydSettings& s = hlydSettings();
    if (!s.SettingsWritable) return;
    writeSettingsBatch([&s] {
        writeSettingGroups(kSaveDisplay | kSavePrint | kSavePrintOptions | kSaveElement | kSaveDebug | kSaveWindow |
                           kSavePrinterState | kSaveFolders | kSaveFullOnly);
        s.Version = theAppInfo().Version;
        iniHandler().WriteString("Version", s.Version, std::string("General"));
    });
}

bool writeSettingsBatch(const std::function<void()>& writes) {
    const std::string path = iniHandler().resolvedPath();
    bool begun = beginProfileBatch(path);
    writes();
    if (begun && endProfileBatch()) return true;
    theLog().LogData("Settings not saved=" + path);
    tellSettingsNotKept(path, saveFailureReason(path), "Changes to the settings made in this run will not be kept.");
    return false;
}

void loadSettingsAtStartup() {
    HlydSettings& s = hlydSettings();
    std::string problem = settingsDirectoryProblem();
    sbInitINI();
    if (problem.empty()) problem = settingsFileProblem(iniHandler().resolvedPath());
    s.SettingsWritable = problem.empty();
    // The keys are read as one batch: the file is looked at once, not once a key (two hundred
    // looks were a tenth of a small file's batch run).
    cINIHandler& ini = iniHandler();
    bool batched = beginProfileBatch(ini.resolvedPath());
    sbGetINIUser();
    s.FirstRun = ini.ReadString("Version", "<none>", "General") == "<none>";
    sbINIGetInfo(s.FirstRun);
    // The log is opened by the start once it knows the files of the run: see openLogChecked.
    theLog().setLogFileName(s.LogFile);
    s.Version = ini.ReadString("Version", "", "General");
    if (batched) endProfileBatch();
    if (!s.SettingsWritable) {
        tellSettingsNotKept(
                settingsDirectory(), problem,
                theAppInfo().Title +
                        " starts with the settings it can read, and changes made in this run will not be kept.");
    } else if (s.Version != theAppInfo().Version) {
        saveAllSettings();
    }
}

std::vector<SettingShown> settingsAsLoaded() {
    std::vector<SettingShown> shown;
    for (const SettingKey& key : settingKeys()) shown.push_back(key.show());
    return shown;
}

}  // namespace hlyd
