#pragma once
// Fonts tried on a surface, and the lengths all layout rests on, per destination.
#include <array>
#include <cstdint>

#include "platform/surface.h"
#include "settings/attributes.h"

namespace hlyd {

struct LayoutMetrics {
    PerDestination<float> ConnectorSize{};
    PerDestination<float> ContinueSize{};
    PerDestination<float> IndentSize{};
    PerDestination<float> MaxFontHeight{};
    PerDestination<float> WhiteSpaceSize{};
    std::int16_t TwipsPerPixelX = 15;
    std::int16_t TwipsPerPixelY = 15;
    // The printer's, which its setup fills; kept apart so that the screen's stay its own.
    std::int16_t PrintTwipsPerPixelX = 15;
    std::int16_t PrintTwipsPerPixelY = 15;
};

LayoutMetrics& layoutMetrics();

// Computes the display slot's metrics and each element's Height, SpaceWidth and XWidth.
void HlydDAGetFontMetricss();
// Makes the surface draw with the record; each property is written only when it differs.
void HlydDASetAttributes(AttributeRecord& attributes, bool measuring);
void setAttributesOn(Surface& surface, AttributeRecord& attributes);
// Tries the record's font on the display surface and mends the record where it is refused.
void HlydDAValidateFont(AttributeRecord& attributes);
void HlydDAValidateFonts();

}  // namespace hlyd
