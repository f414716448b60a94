#pragma once
// The fonts tab of the Display Options dialog: one row per language element with its font and
// colours, the changes a double click makes, and the two buttons that change every row.
#include <cstdint>
#include <string>

#include "models/display_options_model.h"

namespace hlyd {

// cmdAllFonts.
constexpr int kChangeAllFonts = 0;
constexpr int kCopyFromPrintSettings = 1;

// "Courier New, 10 pt, Bold Italic": what txtFont shows.
std::string fontText(const FontSpec& font);
// The title of the font dialog of an element's row.
std::string fontDialogTitle(int element);

// Whether the screen can draw with the font of that name (true when no screen is there to ask).
bool displayHasFont(const std::string& name);

// The font the user chose for one element; a font the screen lacks is refused with a message.
bool setElementFont(DisplayOptionsModel& m, int element, const FontSpec& font);
void setElementColour(DisplayOptionsModel& m, int element, bool foreground, std::uint32_t colour);

// "Change All Fonts": the one font for every element, refused as a whole when the screen lacks it.
bool changeAllFonts(DisplayOptionsModel& m, const FontSpec& font);
// "Copy from Print Settings": each element takes its printer font, unless the screen lacks it.
void copyFontsFromPrintSettings(DisplayOptionsModel& m);

}  // namespace hlyd
