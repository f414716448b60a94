#pragma once
// The HTML export's part of the Session: the document being written.
#include "platform/private_part.h"
#include "platform/session.h"

namespace hlyd {

struct HtmlEmission;

struct HtmlState {
    PrivatePart<HtmlEmission> emission;
};

inline HtmlState& htmlState() { return *detail::current.html; }

}  // namespace hlyd
