#pragma once
// Keeping the three texts of a heading line apart. A centre text whose words change from page to
// page (a procedure's name, a contents title) is centred for its own width on each page; when the
// left or right text is in its way it moves aside only as far as it must, and it is cut with "..."
// only when it does not fit between the two at all.
#include <string>

#include "display/token_layout.h"
#include "platform/surface.h"

namespace hlyd {

struct PlacedText {
    float x = 0;
    std::string text;
};

// One heading line as the page prints it. `centreMoves` and `rightMoves` mark texts that are
// expanded again for each page and so are placed again for their new width.
struct HeadingLine {
    PlacedText left, centre, right;
    bool centreMoves = false;
    bool rightMoves = false;
};

// Places the line's centre and right texts in the area, in printer twips.
void fitHeadingLine(Surface& printer, const AreaRecord& area, HeadingLine& line);

// `leftEnd` and `rightStart` bound the room the centre text may take, in printer twips.
PlacedText fitBetween(Surface& printer, PlacedText centre, float leftEnd, float rightStart);

}  // namespace hlyd
