#include "printing/column_fonts.h"

#include <algorithm>
#include <cmath>

#include "display/font_metrics.h"
#include "display/token_layout.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// Room for indentation that a fitted column keeps beside its line of code: half a blank for each
// of a dozen levels.
constexpr double kFittedIndentChars = 6;

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

// The headings run across the page, not down a column.
bool fitted(int element) { return element != kElemHeadersFooters; }

// Sizes go down in half points, the steps a reader knows them by.
double fittedSize(double size, double scale) {
    double least = std::min(size, kLeastFittedPoints);
    return std::max(least, std::floor(size * scale * 2) / 2);
}

}  // namespace

// Everything that a column's line needs grows with the font: the characters of code and the room
// beside them, the room for indentation, the connectors left of the text and the line numbers.
double columnFitScale() {
    const PrintState& p = printState();
    if (p.Columns.Columns < 2 || p.Columns.Width <= 0) return 1;
    const LayoutMetrics& m = layoutMetrics();
    double need = roomBesideIndent(kPrint) + kFittedIndentChars * printAttributes(kElemIdentifiers).XWidth;
    if (displayAttributes().Format[kPrint].ConnectControls) need += 2 * m.ConnectorSize[kPrint];
    if (hlydSettings().LineNumbers) need += p.LineNumberWidth;
    return std::min(1.0, p.Columns.Width / need);
}

FontsFittedToColumns::FontsFittedToColumns() {
    double scale = columnFitScale();
    if (scale >= 1) return;
    for (int e = 1; e <= kElementCount; ++e) {
        FontSpec& font = printAttributes(e).Font;
        kept_[e] = font.Size;
        if (fitted(e)) font.Size = fittedSize(font.Size, scale);
    }
    fitted_ = true;
    HlydPAGetFontMetrics();
}

FontsFittedToColumns::~FontsFittedToColumns() {
    if (!fitted_) return;
    for (int e = 1; e <= kElementCount; ++e) printAttributes(e).Font.Size = kept_[e];
    HlydPAGetFontMetrics();
}

}  // namespace hlyd
