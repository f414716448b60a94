#include "printing/contents_leader.h"

#include <cmath>

#include "platform/printer.h"
#include "printing/print_state.h"

namespace hlyd {

float contentsRightEdge() {
    const AreaRecord& a = printState().UsableArea;
    return a.Left + a.Width;
}

float numberColumn(Printer& printer, const std::string& widestPage) {
    return printer.textWidth(widestPage) + 2 * printer.textWidth(" ") + 3 * printer.textWidth(".");
}

bool leaderAndPage(Printer& printer, float x, const std::string& page) {
    float d = printer.textWidth(".");
    float blank = printer.textWidth(" ");
    float pageWidth = printer.textWidth(page);
    if (d > 0) x = std::ceil((x + blank) / d) * d;
    float room = contentsRightEdge() - pageWidth - blank - x;
    long dots = d > 0 && room >= 0 ? static_cast<long>(room / d) : 0;
    if (dots < 2) return false;
    printer.setCurrentX(x);
    printer.print(std::string(static_cast<std::size_t>(dots), '.'));
    printer.setCurrentX(contentsRightEdge() - pageWidth);
    printer.print(page);
    return true;
}

std::string pageText(std::int32_t page) { return std::to_string(page) + "  "; }

}  // namespace hlyd
