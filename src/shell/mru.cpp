#include "shell/mru.h"

#include <string>

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
    for (int i = 1; i <= 7; ++i) ini.WriteString("MRU" + std::to_string(i), s.MRU[i], std::string("MRU"));
}

}  // namespace hlyd
