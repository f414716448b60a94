#include "display/wheel_scroll.h"

#include <algorithm>
#include <cmath>

#include "display/font_metrics.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "settings/attributes.h"

namespace hlyd {

namespace {

// A turn the other way drops what was kept: the user reversing should see the view reverse at once.
void accumulate(int& kept, int delta) {
    if ((kept > 0 && delta < 0) || (kept < 0 && delta > 0)) kept = 0;
    kept += delta;
}

// Whole steps of `unit` in what is kept, taken out of it; positive steps move towards the end.
int takeSteps(int& kept, int unit) {
    int steps = kept / unit;
    kept -= steps * unit;
    return -steps;
}

int linePixelsOfView() {
    const LayoutMetrics& m = layoutMetrics();
    int twipsPerPixel = std::max<int>(1, m.TwipsPerPixelY);
    return std::max(1, static_cast<int>(std::lround(m.MaxFontHeight[kDisplay] / static_cast<float>(twipsPerPixel))));
}

}  // namespace

WheelSteps wheelSteps(const WheelTurn& turn, int linePixels) {
    WheelSteps steps;
    linePixels = std::max(1, linePixels);
    if (turn.pixels != 0) {
        // A touchpad moves the text with the fingers; with Ctrl a notch's worth of lines is a page.
        accumulate(viewingState().WheelPixels, turn.pixels);
        if (turn.ctrl) steps.pages = takeSteps(viewingState().WheelPixels, linePixels * kWheelLinesPerNotch);
        else steps.records = takeSteps(viewingState().WheelPixels, linePixels);
        return steps;
    }
    accumulate(viewingState().WheelEighths, turn.angleEighths);
    if (turn.ctrl) steps.pages = takeSteps(viewingState().WheelEighths, kWheelNotch);
    else steps.records = takeSteps(viewingState().WheelEighths, kWheelNotch / kWheelLinesPerNotch);
    return steps;
}

int wheelScrollValue(int value, int minimum, int maximum, int largeChange, const WheelSteps& steps) {
    long long target =
            static_cast<long long>(value) + steps.records + static_cast<long long>(steps.pages) * largeChange;
    return static_cast<int>(std::clamp<long long>(target, minimum, std::max(minimum, maximum)));
}

void picShow_Wheel(const WheelTurn& turn) {
    WheelSteps steps = wheelSteps(turn, linePixelsOfView());
    if (steps.records == 0 && steps.pages == 0) return;
    const ScrollBarModel& bar = mainWindow().vsbDisplay;
    setScrollValue(wheelScrollValue(bar.Value, bar.Min, bar.Max, bar.LargeChange, steps));
}

}  // namespace hlyd
