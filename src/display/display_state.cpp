// The display's part of the Session is made and renewed here, where its type is whole.
#include "display/display_state.h"

namespace hlyd {

HLYD_SESSION_PART(DisplayState)

}  // namespace hlyd
