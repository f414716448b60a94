// The shell's part of the Session is made and renewed here, where its type is whole.
#include "shell/shell_state.h"

namespace hlyd {

HLYD_SESSION_PART(ShellState)

}  // namespace hlyd
