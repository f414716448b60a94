#include "settings/page_settings.h"

namespace hlyd {

namespace {
PageSettings settings;
}

PageSettings& pageSettings() { return settings; }
void resetPageSettings() { settings = PageSettings{}; }

}  // namespace hlyd
