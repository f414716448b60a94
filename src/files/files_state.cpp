// The files' part of the Session is made and renewed here, where its type is whole.
#include "files/files_state.h"

namespace hlyd {

HLYD_SESSION_PART(FilesState)

}  // namespace hlyd
