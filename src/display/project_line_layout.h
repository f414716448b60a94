#pragma once
// One line of a project listing, laid out by one rule for the screen, the paper and the HTML
// document. What differs between them comes in as hooks, as a code record's layout takes its own:
// where the text starts and a wrapped piece goes on, whether a line of blanks is drawn, the page
// break, and the drawing itself.
#include <cstdint>
#include <functional>
#include <string>

#include "display/token_layout.h"

namespace hlyd {

struct ProjectLineHooks {
    // The destination's slot of the layout metrics, for the split of a long line.
    Destination destination = kDisplay;
    // How high one piece of the line is; a destination without measures leaves it 0.
    float lineHeight = 0;
    // The text starts this far right of `pos.Left`.
    float indent = 0;
    // Where a wrapped piece starts, right of `pos.Left`; when below 0, where the first piece did.
    float wrapIndent = -1;
    // Measures a text in the line's font. Without it the line has no right edge and stays whole.
    std::function<float(const std::string& text)> textWidth;
    // A line of blanks is drawn as any other (on paper its background shows); elsewhere it is an
    // empty line, only its height.
    bool blankLinesDrawn = false;
    // On a surface with pages: called when a piece would start below `pos.Bottom`; moves `pos.Top`
    // to the next page and answers false when printing must stop.
    std::function<bool(AreaRecord& pos)> breakAtBottom;
    // Draws a piece with its top left at (x, y); `first` tells the line's first piece.
    std::function<void(const std::string& piece, float x, float y, bool first)> drawPiece;
};

// Lays out and draws one project line at `pos`, moves `pos.Top` below it and returns its wraps;
// -1 when a page break stopped the printing.
std::int32_t layoutProjectLine(const std::string& text, AreaRecord& pos, const ProjectLineHooks& hooks);

}  // namespace hlyd
