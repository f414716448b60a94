#pragma once
// Colours as the settings hold them: 0x00BBGGRR, or 0x800000nn for a colour of the system's
// palette (5 a window's background, 8 a window's text, ...).
#include <QColor>
#include <cstdint>

namespace hlyd {

QColor classicColour(std::uint32_t colour);

}  // namespace hlyd
