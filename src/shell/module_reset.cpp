#include "shell/module_reset.h"

#include "platform/session.h"

namespace hlyd {

void resetModuleState() { currentSession().renew(); }

}  // namespace hlyd
