#include "printing/usable_area.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "platform/printer.h"
#include "printing/print_state.h"
#include "printing/printer_info.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr std::int32_t kInch = 1440;
constexpr std::int32_t kCentimetre = 567;

Printer* presentPrinter() { return printState().PrinterPresent ? currentPrinter() : nullptr; }

std::int32_t whole(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

// The columns share the width left after the gutters between them; halves go to the even twip.
std::int32_t columnWidth(std::int32_t areaWidth, const ColumnSpec& columns) {
    double gutters = (columns.Columns - 1.0) * columns.Gutter;
    return whole((areaWidth - gutters) / columns.Columns);
}

std::int16_t areaError(std::int32_t width, std::int32_t height) {
    std::int32_t minimum = hlydSettings().MetricUnits ? kCentimetre : kInch;
    if (width < minimum) return kAreaTooNarrow;
    if (height < minimum) return kAreaTooShort;
    return kAreaOk;
}

}  // namespace

void HlydPASetDefaultUsableArea(AreaRecord& area) {
    TraceScope trace(theDebug().TraceApplication, "HlydPASetDefaultUsableArea");
    Printer* printer = presentPrinter();
    if (!printer) return;
    try {
        area.Height = printer->scaleHeight();
        area.Left = printer->scaleLeft();
        area.Top = printer->scaleTop();
        area.Width = printer->scaleWidth();
        area.Bottom = area.Height - area.Top;
        area.Right = area.Width - area.Left;
    } catch (const HlydError&) {
        printState().PrinterValid = false;
        showMessage("Unable to set Printable area on the " + printState().PrinterName + ".\n" +
                            "Printing will be disabled until another Printer is selected.",
                    theAppInfo().Title);
    }
}

void HlydPASetUsableArea(AreaRecord& area, const AreaRecord&, const MarginRecord& m, ColumnSpec& columns) {
    TraceScope trace(theDebug().TraceApplication, "HlydPASetUsableArea");
    Printer* printer = presentPrinter();
    if (!printer) return;
    PrintState& state = printState();
    cPrinterInfo info;
    float lineHeight = printer->textHeight("X");
    area.Top = m.Top < 0 ? static_cast<float>(info.YOffset()) : static_cast<float>(m.Top - info.YOffset());
    area.Bottom = info.PageBottom() - static_cast<float>(m.Bottom - info.YOffset()) - lineHeight;
    area.Left = static_cast<float>(m.Left - info.XOffset());
    area.Right = info.PageRight() - static_cast<float>(m.Right - info.XOffset());
    std::int32_t width = whole(printer->width()) - m.Right - m.Left;
    std::int32_t height = whole(printer->height()) - m.Top - m.Bottom;
    area.Width = static_cast<float>(width);
    area.Height = static_cast<float>(height);
    state.SavedBottom = area.Bottom;
    state.SavedTop = area.Top;
    // No page has fewer than one column; a count below that is a slip in the settings.
    if (columns.Columns < 1) columns.Columns = 1;
    columns.Width = columnWidth(width, columns);
    // Too many columns for the width leave each too narrow to hold a line: the same refusal.
    state.AreaError = areaError(std::min(width, columns.Width), height);
    // The status tells whether the margins in force fit; new margins that fit clear it.
    if (state.AreaError != kAreaOk) state.PrintStatus = kPrintMarginsOutside;
    else if (state.PrintStatus == kPrintMarginsOutside) state.PrintStatus = kPrintOk;
}

// The user has been told that the margins are ignored: the printer's own area takes their place
// and printing goes on in it. Only columns too narrow even there still refuse a print.
void HlydPAUseDefaultArea(AreaRecord& area, const AreaRecord& defaultArea, ColumnSpec& columns) {
    PrintState& state = printState();
    area = defaultArea;
    state.SavedTop = area.Top;
    state.SavedBottom = area.Bottom;
    if (columns.Columns < 1) columns.Columns = 1;
    std::int32_t width = whole(area.Width);
    columns.Width = columnWidth(width, columns);
    state.AreaError = areaError(std::min(width, columns.Width), whole(area.Height));
    if (state.AreaError == kAreaOk && state.PrintStatus == kPrintMarginsOutside) state.PrintStatus = kPrintOk;
}

}  // namespace hlyd
