#pragma once
// What the view shows where, as the last screen drawn left it: the stretches of the lines, in
// twips. A pointer's place maps to a place in a line, and a part of the lines to boxes to light.
#include <optional>
#include <vector>

#include "display/drawn_stretch.h"
#include "display/text_search.h"

namespace hlyd {

struct ViewMap {
    std::vector<DrawnStretch> stretches;  // in the order drawn: by record, then left to right
};

ViewMap& viewMap();

// A box in twips.
struct TwipBox {
    float left = 0, top = 0, right = 0, bottom = 0;
};

// The place in a line nearest the point: on the screen line nearest it vertically, the edge
// between bytes nearest it. None when nothing is shown.
std::optional<TextPlace> placeAt(const ViewMap& map, float x, float y);

// The boxes that cover the bytes from `from` up to `to` where they are shown.
std::vector<TwipBox> boxesOf(const ViewMap& map, TextPlace from, TextPlace to);

// Whether the view shows the place (on a screen line that ends above `bottom`).
bool placeShown(const ViewMap& map, TextPlace place, float bottom);

bool before(TextPlace a, TextPlace b);

}  // namespace hlyd
