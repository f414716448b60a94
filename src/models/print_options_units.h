#pragma once
// Lengths as the print options show them: in inches, or in centimetres where the user's system
// measures in metric, turned into twips and back.
#include <cstdint>
#include <optional>
#include <string>

namespace hlyd {

// Twips in one of the dialog's units: 1440 to the inch, 567 to the centimetre.
float optionsUnitTwips();

// "Columns (Inches)" / "Columns (Centimeters)" and the same for the margins.
std::string columnsFrameCaption();
std::string marginsFrameCaption();

// A length in the dialog's units with at most three decimals: 720 twips is "0.5" in inches.
std::string lengthText(std::int32_t twips);

// The number a field holds: an optional sign, digits, and at most one decimal separator, with
// blanks around. Nothing else counts as a number; empty when the text is not one.
std::optional<float> numberInField(const std::string& text);

// The field's value turned into twips, multiplied in single precision as the page geometry
// expects; empty when the text is not a number.
std::optional<float> fieldTwips(const std::string& text);

}  // namespace hlyd
