#include "settings/last_folders.h"

#include "platform/os.h"
#include "settings/settings_keys.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

void remember(std::string& setting, const std::string& chosenFile) {
    std::string folder = folderOf(chosenFile);
    if (folder.empty() || folder == setting) return;
    setting = folder;
    writeSettingGroups(kSaveFolders);
}

}  // namespace

std::string folderOf(const std::string& file) {
    std::string name, directory;
    sbFileNameFromDir(file, name, directory);
    // "C:\" and "/" are folders in their own right; elsewhere the separator goes.
    if (directory.size() > 1 && directory[directory.size() - 2] != ':') directory.pop_back();
    return directory;
}

// A folder named in the settings that is gone (a removed project, a drive not attached) gives way
// to the home folder, as does no folder at all: a dialog given no folder shows the machine's
// top, where no source lives.
std::string openDialogFolder() {
    const HlydSettings& s = hlydSettings();
    for (const std::string& folder : {s.DefaultFileLoc, s.LastFileLoc})
        if (!folder.empty() && os::fileInfo(folder).kind == os::FileKind::Directory) return folder;
    return os::homeDirectory();
}

void rememberOpenFolder(const std::string& chosenFile) { remember(hlydSettings().LastFileLoc, chosenFile); }
void rememberHtmlFolder(const std::string& chosenFile) { remember(hlydSettings().LastHTMLLoc, chosenFile); }
void rememberPdfFolder(const std::string& chosenFile) { remember(hlydSettings().LastPDFLoc, chosenFile); }

}  // namespace hlyd
