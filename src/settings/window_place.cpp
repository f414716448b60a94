#include "settings/window_place.h"

#include <algorithm>

namespace hlyd {

namespace {

// 200 x 150 pixels at 15 twips a pixel: below that the toolbar and the view no longer fit.
constexpr std::int64_t kMinWidth = 3000;
constexpr std::int64_t kMinHeight = 2250;
// Of the window's top strip this much must lie on a screen: about 100 pixels of a title bar.
constexpr std::int64_t kGrabWidth = 1500;
constexpr std::int64_t kGrabHeight = 450;

std::vector<ScreenArea> screens{{0, 0, 1920 * 15, 1080 * 15}};
bool unknownScreens = false;

bool topStripOn(const std::array<std::int32_t, 4>& place, const ScreenArea& screen) {
    // 64-bit sums: a place of nonsense numbers must not overflow on the way to its refusal.
    std::int64_t left = std::max<std::int64_t>(place[0], screen[0]);
    std::int64_t right = std::min<std::int64_t>(std::int64_t{place[0]} + place[2], std::int64_t{screen[0]} + screen[2]);
    std::int64_t top = place[1];
    return right - left >= kGrabWidth && top >= screen[1] && top + kGrabHeight <= std::int64_t{screen[1]} + screen[3];
}

}  // namespace

void setScreensUnknown(bool unknown) { unknownScreens = unknown; }
bool screensUnknown() { return unknownScreens; }

void setScreenAreasTwips(std::vector<ScreenArea> areas) {
    if (!areas.empty()) screens = std::move(areas);
}

const std::vector<ScreenArea>& screenAreasTwips() { return screens; }

bool usableWindowPlace(const std::array<std::int32_t, 4>& place, const std::vector<ScreenArea>& areas) {
    if (place[2] < kMinWidth || place[3] < kMinHeight) return false;
    return std::any_of(areas.begin(), areas.end(), [&](const ScreenArea& screen) { return topStripOn(place, screen); });
}

}  // namespace hlyd
