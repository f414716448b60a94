#pragma once
// What the settings give the page geometry: margins and columns, in twips.
#include <cstdint>

namespace hlyd {

// The settings' default margins for paper (see the settings' loading).
struct MarginRecord {
    std::int32_t Bottom = 360;
    std::int32_t Left = 720;
    std::int32_t Right = 720;
    std::int32_t Top = 360;
    std::int32_t MinX = 0;
    std::int32_t MinY = 0;
};

struct ColumnSpec {
    std::int16_t Columns = 1;
    bool Separator = true;
    std::int32_t Gutter = 720;  // ColumnSpacing
    std::int32_t Width = 0;     // ColumnWidth
};

struct PageSettings {
    MarginRecord Margins;
    ColumnSpec Columns;
};

PageSettings& pageSettings();

}  // namespace hlyd
