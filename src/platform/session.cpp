// The Session in force lives at the bottom, beside the header that every layer's accessors read, so
// that no layer refers up to the shell that assembles the Session.
#include "platform/session.h"

namespace hlyd {

constinit detail::CurrentParts detail::current{};

}  // namespace hlyd
