#pragma once
// Whether a stored window place can be used: on some screen, and large enough to work in.
#include <array>
#include <cstdint>
#include <vector>

namespace hlyd {

// A screen's area in twips: left, top, width, height.
using ScreenArea = std::array<std::int32_t, 4>;

// The screens of the desktop, as the window layer tells them; one screen of 1920 x 1080 pixels
// until it does.
void setScreenAreasTwips(std::vector<ScreenArea> areas);
const std::vector<ScreenArea>& screenAreasTwips();

// A run that starts no window system knows no screen: it leaves the window's stored place, state
// and bars as it found them, since whatever it could write would only be a guess.
void setScreensUnknown(bool unknown);
bool screensUnknown();

// A place (left, top, width, height in twips) is usable when it is at least a small working window
// and its top edge stands on a screen with enough of it showing to be grabbed and moved.
bool usableWindowPlace(const std::array<std::int32_t, 4>& place, const std::vector<ScreenArea>& screens);

}  // namespace hlyd
