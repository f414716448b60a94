#pragma once
// The fonts of the language elements on the printer: chosen, checked against what the printer
// has, made current, and measured for the printer's layout metrics.
#include <string>

#include "settings/attributes.h"

namespace hlyd {

// A fixed-pitch font the printer has ("Courier New", else "Courier", else "Arial"), spelt as the
// printer spells it; empty when it has none of them, or no printer is in force.
std::string GetDefaultPrintFont();

// Makes the element's font and colour current on the printer.
void HlydPASetAttributes(AttributeRecord& element);

// Tries the element's font (or the wanted name) on the printer and mends what the printer cannot
// do; a font it lacks disables printing. `verbose` only decides whether the reason is shown.
void HlydPAValidateFont(AttributeRecord& element, const std::string& wantedName, bool verbose, bool& success);

// Every element's print font, then the print metrics.
void HlydPAValidateFonts(bool verbose);

// The print slot of the layout metrics, each element's print Height, SpaceWidth and XWidth, and
// the width of the line-number column.
void HlydPAGetFontMetrics();

// Whether the fonts in force can be printed; tells the user when not.
bool HlydPACheckIfValid();

}  // namespace hlyd
