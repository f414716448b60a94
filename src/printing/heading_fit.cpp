#include "printing/heading_fit.h"

#include <algorithm>

namespace hlyd {

namespace {
// Widths measured by a device come in fractions of a twip: a text that fits to the twip fits.
constexpr float kTolerance = 0.5f;
}  // namespace

PlacedText fitBetween(Surface& printer, PlacedText centre, float leftEnd, float rightStart) {
    float width = printer.textWidth(centre.text);
    bool clear = centre.x + kTolerance >= leftEnd && centre.x + width <= rightStart + kTolerance;
    if (centre.text.empty() || clear) return centre;
    float room = rightStart - leftEnd;
    if (width <= room + kTolerance) {
        centre.x = std::clamp(centre.x, leftEnd, std::max(leftEnd, rightStart - width));
        return centre;
    }
    std::string kept = centre.text;
    while (!kept.empty() && printer.textWidth(kept + "...") > room + kTolerance) kept.pop_back();
    centre.x = leftEnd;
    centre.text = printer.textWidth(kept + "...") <= room + kTolerance ? kept + "..." : std::string();
    return centre;
}

}  // namespace hlyd
