#include "settings/last_folders.h"

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

std::string openDialogFolder() {
    const HlydSettings& s = hlydSettings();
    return s.DefaultFileLoc.empty() ? s.LastFileLoc : s.DefaultFileLoc;
}

void rememberOpenFolder(const std::string& chosenFile) { remember(hlydSettings().LastFileLoc, chosenFile); }
void rememberHtmlFolder(const std::string& chosenFile) { remember(hlydSettings().LastHTMLLoc, chosenFile); }
void rememberPdfFolder(const std::string& chosenFile) { remember(hlydSettings().LastPDFLoc, chosenFile); }

}  // namespace hlyd
