#pragma once
// Faces as the toolkit's font engine reads them: the face a print asks for, found through the
// remembered face files or the font database, and its raw font for drawing on a system printer.
#include <QRawFont>

#include "platform/pdf/print_faces.h"

namespace hlyd {

// A PrintFaces maker: fills the face from the font engine.
FaceFigures makeQtFace(PrintFace& face);
// The same from a raw font at any size: the face's pixel size is set beforehand.
FaceFigures fillQtFace(PrintFace& face, QRawFont raw);
// The face's font at its pixel size, as the font engine drew it.
const QRawFont& rawFontOf(const PrintFace& face);

}  // namespace hlyd
