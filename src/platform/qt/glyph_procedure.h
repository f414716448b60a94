#pragma once
// A glyph drawn by the PDF file itself, for a face whose outlines cannot be embedded as a font
// program (a Type 1 face, a CID-keyed CFF one): the outline as a Type 3 glyph procedure.
#include <QPainterPath>
#include <string>

namespace hlyd {

// The procedure for an outline in font units with y downwards, as the toolkit gives it, and an
// advance of `width` font units. The glyph takes the colour of the text.
std::string glyphProcedure(const QPainterPath& outline, double width);

}  // namespace hlyd
