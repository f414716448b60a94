// The printing's part of the Session is made and renewed here, where its type is whole.
#include "printing/printing_state.h"

namespace hlyd {

HLYD_SESSION_PART(PrintingState)

}  // namespace hlyd
