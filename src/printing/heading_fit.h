#pragma once
// Keeping the three texts of a heading line apart. A centre text keeps the place it was given
// when its line was set up (a centred page number stays put), but a procedure name that grows
// on a later page would run into the left or right text and make both unreadable: it is moved
// between them, and cut with "..." when even that gap is too small.
#include <string>

#include "platform/surface.h"

namespace hlyd {

struct PlacedText {
    float x = 0;
    std::string text;
};

// `leftEnd` and `rightStart` bound the room the centre text may take, in printer twips.
PlacedText fitBetween(Surface& printer, PlacedText centre, float leftEnd, float rightStart);

}  // namespace hlyd
