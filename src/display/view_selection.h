#pragma once
// The reader's selection in the view: from where the button went down (or Shift was first held)
// to the caret. It is a stretch of the file's lines, so that a copy gives the lines as they stand
// in the file, whatever the view's indentation, wraps and marks made of them.
#include <string>

#include "display/text_search.h"

namespace hlyd {

struct ViewSelection {
    TextPlace anchor;
    TextPlace caret;
    const RecordTexts* of = nullptr;  // the file the places belong to; another file's are void
};

ViewSelection& viewSelection();

// The selection's ends in file order; both are zero when there is none (or it is of another file).
TextPlace selectionStart();
TextPlace selectionEnd();
bool selectionEmpty();

// A press puts anchor and caret at the place; with Shift (`extend`) only the caret moves.
void selectFrom(TextPlace place, bool extend);
void selectTo(TextPlace place);
// From the first record the view shows to the end of the last.
void selectAll();
void selectHit(const TextHit& hit);
// A double click: the word (letters, digits, "_") the place is in or touches; a place between two
// other bytes selects the one after it, as editors do.
void selectWordAt(TextPlace place);
// A drag held above or below the view: one line scrolled that way (`down` or up); false at an end.
bool scrollForDrag(bool down);

enum class CaretMove { Left, Right, Up, Down };
// Shift with an arrow key: the caret moves a byte along the line (and on to the next line shown)
// or a line up or down, and the view follows it.
void extendSelection(CaretMove move);

// The selected bytes of each line, lines joined by `lineEnd`; lines the view does not show are
// left out.
std::string selectedText(const std::string& lineEnd);

// Scrolls the view until it shows the place, if it does not.
void revealPlace(TextPlace place);

}  // namespace hlyd
