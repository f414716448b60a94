#pragma once
// The settings' part of the Session: the records read from HLYD.INI, the element table, the page
// settings, the locale's texts and the parsed settings file.
#include <memory>

#include "platform/private_part.h"
#include "platform/session.h"
#include "settings/attributes.h"
#include "settings/ini_handler.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

struct ProfileCache;

struct SettingsState {
    HlydSettings settings;
    std::unique_ptr<cINIHandler> ini;  // opened on first use, on the settings file of the run
    DisplayAttributes attributes = namedDisplayAttributes();
    PageSettings page;
    LocaleTexts locale;
    PrivatePart<ProfileCache> profileCache;
};

inline SettingsState& settingsState() { return *detail::current.settings; }

}  // namespace hlyd
