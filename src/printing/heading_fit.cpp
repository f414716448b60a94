#include "printing/heading_fit.h"

#include <algorithm>

namespace hlyd {

namespace {

// Widths measured by a device come in fractions of a twip, and a line's texts are measured apart:
// the fractions add up along a line. A text that misses its room by a tenth of a point fits.
constexpr float kTolerance = 2.0f;

// The macros end most pieces with a blank to keep words apart; at the end of a text that blank
// shows nothing, and is no reason to move or cut a text.
std::string withoutTrailingBlanks(const std::string& s) { return s.substr(0, s.find_last_not_of(' ') + 1); }

}  // namespace

PlacedText fitBetween(Surface& printer, PlacedText centre, float leftEnd, float rightStart) {
    std::string shown = withoutTrailingBlanks(centre.text);
    if (shown.empty()) return centre;
    float width = printer.textWidth(shown);
    bool clear = centre.x + kTolerance >= leftEnd && centre.x + width <= rightStart + kTolerance;
    if (clear) return centre;
    float room = rightStart - leftEnd;
    centre.text = shown;
    if (width <= room + kTolerance) {
        centre.x = std::clamp(centre.x, leftEnd, std::max(leftEnd, rightStart - width));
        return centre;
    }
    std::string kept = shown;
    while (!kept.empty() && printer.textWidth(kept + "...") > room + kTolerance) kept.pop_back();
    centre.x = leftEnd;
    centre.text = printer.textWidth(kept + "...") <= room + kTolerance ? kept + "..." : std::string();
    return centre;
}

void fitHeadingLine(Surface& printer, const AreaRecord& area, HeadingLine& line) {
    float areaEnd = area.Left + area.Width;
    // The right text is placed on each page from its own width, not once from the first page's:
    // "Page 10", "Page 100" or "viii" would otherwise run past the margin.
    float rightWidth = printer.textWidth(line.right.text);
    if (line.rightMoves && rightWidth < area.Width) line.right.x = areaEnd - rightWidth;
    // So is a changing centre text: kept where the first page's text was centred, a longer name
    // sits off-centre, and runs into its neighbours sooner than it must.
    float centreWidth = printer.textWidth(line.centre.text);
    if (line.centreMoves && !line.centre.text.empty() && centreWidth < area.Width)
        line.centre.x = area.Left + (area.Width - centreWidth) / 2;

    float blank = printer.textWidth(" ");
    std::string left = withoutTrailingBlanks(line.left.text);
    std::string right = withoutTrailingBlanks(line.right.text);
    float leftEnd = left.empty() ? area.Left : line.left.x + printer.textWidth(left) + blank;
    float rightStart = right.empty() ? areaEnd : line.right.x - blank;
    // The right text's own trailing blank stands at the margin. When it alone keeps the centre
    // text from fitting, the right text gives it up and ends at the margin with its last letter.
    float slack = right.empty() ? 0 : std::max(0.0f, areaEnd - (line.right.x + printer.textWidth(right)));
    float wanted = printer.textWidth(withoutTrailingBlanks(line.centre.text));
    float room = rightStart - leftEnd;
    if (slack > 0 && wanted > room + kTolerance && wanted <= room + slack + kTolerance) {
        line.right.x += slack;
        line.right.text = right;
        rightStart += slack;
    }
    line.centre = fitBetween(printer, line.centre, leftEnd, rightStart);
}

}  // namespace hlyd
