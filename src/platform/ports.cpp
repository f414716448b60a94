#include "platform/ports.h"

#include "platform/clock.h"
#include "platform/console_ui.h"
#include "platform/views.h"

namespace hlyd {

Ports::Ports() : ui(&sharedConsoleUi()), clock(&systemClock()), views(&windowlessViews()) {}

}  // namespace hlyd
