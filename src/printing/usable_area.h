#pragma once
// The part of the page that printing may use: the printer's own printable area, and the area the
// margins leave, divided into columns.
#include "display/token_layout.h"
#include "settings/page_settings.h"

namespace hlyd {

// The printer's own printable area, when a printer is present.
void HlydPASetDefaultUsableArea(AreaRecord& area);

// The area the margins leave on the current printer, and the width of each of its columns. Its
// Bottom is the last Y at which a line may begin. An area too small to print in sets AreaError
// and PrintStatus 4.
void HlydPASetUsableArea(AreaRecord& area, const AreaRecord& defaultArea, const MarginRecord& margins,
                         ColumnSpec& columns);

// The printer's own area in force instead of margins that do not fit, with the columns' width
// in it; AreaError and PrintStatus 4 stand only if even that area is too small.
void HlydPAUseDefaultArea(AreaRecord& area, const AreaRecord& defaultArea, ColumnSpec& columns);

}  // namespace hlyd
