#pragma once
// A face read straight from its font file, without a font engine: what a print that remembers its
// faces' files needs of each, figure for figure as the toolkit's engine gives them, so that a
// short print need not load the toolkit's graphics at all. A file this reading cannot answer
// exactly as the engine would (a collection, a symbol font, outlines that cannot be embedded, a
// font that asks for its typographic metrics or has no cap height of its own) is not answered,
// and the print asks the engine instead.
#include <optional>
#include <string>

#include "platform/pdf/print_faces.h"

namespace hlyd {

// Fills the face's program, glyphs and advances at its pixel size from the font file at `path`,
// and gives its figures; nothing when the file cannot answer.
std::optional<FaceFigures> readFileFace(PrintFace& face, const std::string& path);

}  // namespace hlyd
