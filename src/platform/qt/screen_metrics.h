#pragma once
// Twips (1440 to the inch) against the pixels of the screen the program runs on.
#include <QSize>
#include <array>
#include <cstdint>
#include <vector>

namespace hlyd {

// 1440 / the screen's logical dots per inch, rounded; 15 at 96 dpi.
int screenTwipsPerPixelX();
int screenTwipsPerPixelY();
int screenLogicalDpiX();
int screenLogicalDpiY();
// The primary screen's size in twips, for default window places.
QSize screenSizeTwips();
// Every screen of the desktop: left, top, width and height in twips.
std::vector<std::array<std::int32_t, 4>> screenAreasInTwips();

}  // namespace hlyd
