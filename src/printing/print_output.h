#pragma once
// Where a print command's output goes when the printer writes a file rather than paper.
#include <string>

#include "platform/printer.h"

namespace hlyd {

// For the PDF printer, asks where to save, starting with the shown file's or project's name with
// ".pdf" in the folder used last; the folder chosen is kept for next time. Any other printer needs
// no file: `path` stays empty. False when the user cancels.
bool askPrintOutputPath(std::string& path);

}  // namespace hlyd
