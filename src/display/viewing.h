#pragma once
// The main window's controls tied to the emitter: keys, scroll bar, procedure list, next and
// prior procedure and file. They write the scroll bar's value or ask the emitter; nothing more.
namespace hlyd {

constexpr int kKeyPageUp = 33, kKeyPageDown = 34, kKeyEnd = 35, kKeyHome = 36, kKeyUp = 38, kKeyDown = 40;
constexpr int kShiftCtrl = 2;

void picShow_KeyDown(int keyCode, int shift);
void vsbDisplay_Change();
// Writes the scroll bar's value as a user's move would: the change event follows.
void setScrollValue(int value);
void cboProc_Click();
void mnuViewProc_Click(int index);  // 0 next, 1 prior
void mnuViewFile_Click(int index);  // 0 next, 1 prior
void mnuViewFileList_Click(int index);
void DisplayFile();
// A resize: the view's height follows the scroll bar's, and a shown file is drawn again.
void viewResized(int viewHeightTwips);

struct ViewingState {
    bool InScroll = false;
    bool NotAtEnd = true;
    int WheelEighths = 0;  // the part of wheel turns not yet a whole step
    int WheelPixels = 0;   // the same for a touchpad's pixels
};
ViewingState& viewingState();

}  // namespace hlyd
