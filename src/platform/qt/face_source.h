#pragma once
// Where a print's face comes from: the file an earlier print found for it, read directly; else
// Qt's font database, and then the face's file is remembered for the next print when it holds the
// very face Qt chose.
#include <QFont>
#include <QRawFont>

namespace hlyd {

QRawFont rawFaceOf(const QFont& font);
// Writes face-files back when the run learnt something and read the font configuration.
void saveFaceFiles();

}  // namespace hlyd
