#include "settings_dump.h"

#include <algorithm>
#include <string>
#include <vector>

#include "files/mru.h"
#include "json_lines.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

std::string jsonValue(const SettingShown& s) {
    switch (s.kind) {
        case SettingShown::Bool: return s.boolValue ? "true" : "false";
        case SettingShown::Number: return numberText(s.numberValue);
        default: return jsonString(s.textValue);
    }
}

}  // namespace

void dumpSettings(std::ostream& out) {
    queryLocaleSeparators();
    loadSettingsAtStartup();
    hlydSettings().MetricUnits = fbIsMetric();
    GetMRU();
    // Sections in the order they first appear; keys in their order within.
    std::vector<std::pair<std::string, std::string>> sections;
    for (const SettingShown& s : settingsAsLoaded()) {
        std::string member = jsonString(s.key) + ":" + jsonValue(s);
        auto at = std::find_if(sections.begin(), sections.end(), [&](auto& p) { return p.first == s.section; });
        if (at == sections.end()) sections.emplace_back(s.section, member);
        else at->second += "," + member;
    }
    std::string text = "{";
    for (std::size_t i = 0; i < sections.size(); ++i)
        text += (i ? "," : "") + jsonString(sections[i].first) + ":{" + sections[i].second + "}";
    out << text << "}\n";
}

}  // namespace hlyd
