#include "settings/page_settings.h"

#include "settings/settings_state.h"

namespace hlyd {

PageSettings& pageSettings() { return settingsState().page; }

}  // namespace hlyd
