#pragma once
// The Fonts tab of the print options: each element's print font and colours, and the check of a
// font against the printer in force before OK takes it.
#include <string>

#include "models/print_options_model.h"

namespace hlyd {

// The print slot of the element table into the rows, and back.
void loadPrintFontRows(PrintOptionsModel& m);
void storePrintFontRows(const PrintOptionsModel& m);

// Whether the printer has the row's font as asked. What it cannot do is mended in the row (the
// size it has, no style it lacks, at most 100 points) and told in `message`; a name it lacks
// cannot be mended. With no printer in force there is nothing to check against.
bool fValidateFont(PrintFontRow& row, std::string& message);

// Every element's row; the first that the printer does not take leaves its message.
bool validatePrintFonts(PrintOptionsModel& m);

}  // namespace hlyd
