#pragma once
// Where the bytes of a record's line stand in the view: the layout tells of each stretch it draws
// (a token's piece, or the blanks between two tokens), so that a pointer's place maps back to the
// line and a stretch of the line to boxes on the view.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/source_model.h"
#include "settings/attributes.h"

namespace hlyd {

class Surface;

struct DrawnStretch {
    std::int32_t record = 0;
    std::int32_t column = 0;    // the first byte's offset in the line
    std::int32_t length = 0;    // bytes of the line
    float top = 0, bottom = 0;  // the screen line it stands on, in twips
    float left = 0, right = 0;
    // The font it was drawn in; none for the blanks between tokens, which share their room evenly.
    const AttributeRecord* attributes = nullptr;
    // Where its first byte is shown, in characters from the code's start, and the tab width it
    // was drawn with: a tab inside a token shows as the blanks up to its stop.
    std::size_t shownColumn = 0;
    std::int32_t tabWidth = 0;
    // The left edge of each byte, and the stretch's right end (length + 1 values): measured only
    // when a pointer or a selection needs them, as a redraw would otherwise measure every prefix
    // of every piece on the screen.
    mutable std::vector<float> edges;
};

// The stretch's edges, measured on the display surface in its font the first time they are asked.
const std::vector<float>& stretchEdges(const DrawnStretch& stretch);

// The offset in the record's line at which each of its tokens starts, from the record's first
// token on. Blanks before a token are its leading space; a token whose text the reader changed (a
// "Rem" with a tab after it) is placed after the blanks all the same.
std::vector<std::int32_t> tokenColumns(const SourceTables& tables, std::int32_t record);

// How many bytes of `source` a shown text of `shown` characters stands for, where a control
// character shows as two (caret notation) and a tab as the blanks to its stop, the source shown
// from `column`.
std::size_t sourceBytesOfShown(std::string_view source, std::size_t shown, std::size_t column = 0,
                               std::int32_t tabWidth = 0);

// The edges of `length` bytes of `source` from `from`, drawn at `x` in the surface's font now,
// the first of them shown at `column`.
std::vector<float> measureEdges(Surface& surface, const std::string& source, std::size_t from, std::size_t length,
                                float x, std::size_t column = 0, std::int32_t tabWidth = 0);

}  // namespace hlyd
