#pragma once
// The column of page numbers at the right of a contents page, and the dots that lead to them.
#include <cstdint>
#include <string>

namespace hlyd {

class Printer;

// Where the page numbers end: the usable area's Left + Width (its Right may lie a little further
// out, past the margin).
float contentsRightEdge();

// The page numbers stand in a column at the right edge, wide enough for the widest of them and a
// leader of at least two dots with a blank before and after: a declaration wraps before the
// column, so no number ever lands on text and every number ends at one right edge.
float numberColumn(Printer& printer, const std::string& widestPage);

// Dots from a blank after the text at `x` to a blank before the page number, on one grid for all
// lines so that they stand in columns; then the number, ending at the right edge. False, with
// nothing printed, when fewer than two dots would fit.
bool leaderAndPage(Printer& printer, float x, const std::string& page);

// A page number as a contents entry holds it: the number and two blanks.
std::string pageText(std::int32_t page);

}  // namespace hlyd
