#pragma once
// The mouse wheel and the touchpad over the view: turns become records to move, and the move goes
// through the scroll bar's value as a key's would, so that the view is drawn by the one road.
namespace hlyd {

// One wheel event as the platform reports it. Positive values turn away from the user, which
// moves the view towards the start of the file.
struct WheelTurn {
    int angleEighths = 0;  // eighths of a degree; a notch of a classic wheel is 120
    int pixels = 0;        // a touchpad's precise delta, when the platform gives one
    bool ctrl = false;
};

constexpr int kWheelNotch = 120;
constexpr int kWheelLinesPerNotch = 3;

// What a turn asks for: records to move (positive towards the end), or pages with Ctrl held. Fine
// wheels and touchpads report many small deltas: the part too small for a whole step is kept (in
// the viewing state) for the next turn in the same direction, so slow movement still scrolls.
struct WheelSteps {
    int records = 0;
    int pages = 0;
};
WheelSteps wheelSteps(const WheelTurn& turn, int linePixels);

// The scroll value the steps lead to, within the bar's range.
int wheelScrollValue(int value, int minimum, int maximum, int largeChange, const WheelSteps& steps);

// The view's handler: moves the scroll bar by the turn; the view follows as for a key.
void picShow_Wheel(const WheelTurn& turn);

}  // namespace hlyd
