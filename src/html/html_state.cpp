// The HTML export's part of the Session is made and renewed here, where its type is whole.
#include "html/html_state.h"

namespace hlyd {

HLYD_SESSION_PART(HtmlState)

}  // namespace hlyd
