// The settings' part of the Session is made and renewed here, where its type is whole.
#include "settings/settings_state.h"

namespace hlyd {

HLYD_SESSION_PART(SettingsState)

}  // namespace hlyd
