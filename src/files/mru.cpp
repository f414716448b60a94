#include "files/mru.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "files/main_window_model.h"
#include "platform/char_case.h"
#include "platform/os.h"
#include "settings/settings_store.h"

namespace hlyd {

void GetMRU() {
    HlydSettings& s = hlydSettings();
    cINIHandler& ini = iniHandler();
    for (int i = 1; i <= 7; ++i) {
        std::string name = ini.ReadString("MRU" + std::to_string(i), "", "MRU");
        if (!name.empty()) s.MRU[i] = name;
    }
}

void SaveMRU() {
    HlydSettings& s = hlydSettings();
    if (!s.SettingsWritable) return;
    cINIHandler& ini = iniHandler();
    writeSettingsBatch([&] {
        for (int i = 1; i <= 7; ++i) ini.WriteString("MRU" + std::to_string(i), s.MRU[i], std::string("MRU"));
    });
}

void ShowMRU() {
    // Traced under the name of the routine that writes the list, as the logs have always shown it.
    TraceScope trace(theDebug().TraceApplication, "SaveMRU");
    const HlydSettings& s = hlydSettings();
    std::vector<std::string>& captions = mainWindow().mruCaptions;
    captions.assign(7, std::string());
    for (int i = 1; i <= 7; ++i)
        if (!s.MRU[i].empty()) captions[i - 1] = "&" + std::to_string(i) + " " + s.MRU[i];
}

void UpdateMRUList(const std::string& fileName) {
    if (fileName.empty()) return;
    std::array<std::string, 8>& mru = hlydSettings().MRU;
    const std::string wanted = upperCase(fileName);
    int found = 8;
    for (int i = 1; i <= 7 && found == 8; ++i)
        if (upperCase(mru[i]) == wanted) found = i;
    // Entries ahead of the one found move back one place; without a match the last one falls off.
    for (int i = std::min(found, 7); i > 1; --i) mru[i] = mru[i - 1];
    mru[1] = fileName;
}

bool offerRemovalOfMissingRecentFile(int position) {
    std::array<std::string, 8>& mru = hlydSettings().MRU;
    const std::string name = mru[position];
    if (name.empty() || os::fileInfo(name).exists()) return false;
    MsgAnswer answer = showMessage(name + "\n\ncannot be found. Remove it from the list of recent files?",
                                   theAppInfo().Title, MsgButtons::YesNo, MsgIcon::Question);
    if (answer != MsgAnswer::Yes) return true;
    for (int i = position; i < 7; ++i) mru[i] = mru[i + 1];
    mru[7].clear();
    SaveMRU();
    ShowMRU();
    return true;
}

}  // namespace hlyd
