#include "printing/printer_info.h"

#include <cmath>

#include "base/hlyd_error.h"

namespace hlyd {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kTwipsPerCentimetre = 567;
constexpr int kDivisionByZero = 11;

std::int32_t whole(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

// A device that tells no resolution cannot be measured: the figures would be nonsense.
double perInch(std::int32_t pixelsPerInch) {
    if (pixelsPerInch <= 0) raiseRuntime(kDivisionByZero, "cPrinterInfo");
    return pixelsPerInch;
}

}  // namespace

cPrinterInfo::cPrinterInfo() {
    if (Printer* printer = currentPrinter()) *this = cPrinterInfo(printer->caps());
}

cPrinterInfo::cPrinterInfo(const PrinterCaps& caps) : caps_(caps) {
    double ppiX = perInch(caps.PixelsPerInchX), ppiY = perInch(caps.PixelsPerInchY);
    xOffset_ = whole(caps.PhysicalOffsetX / ppiX * kTwipsPerInch);
    yOffset_ = whole(caps.PhysicalOffsetY / ppiY * kTwipsPerInch);
    xOffsetIn_ = whole(caps.PhysicalOffsetX / ppiX);
    yOffsetIn_ = whole(caps.PhysicalOffsetY / ppiY);
    xOffsetCm_ = whole(caps.PhysicalOffsetX / (ppiX / kTwipsPerInch * kTwipsPerCentimetre));
    yOffsetCm_ = whole(caps.PhysicalOffsetY / (ppiY / kTwipsPerInch * kTwipsPerCentimetre));
}

float cPrinterInfo::PageBottom() const {
    if (caps_.PixelsPerInchY <= 0) return 0;
    return static_cast<float>(caps_.PhysicalHeight / static_cast<double>(caps_.PixelsPerInchY) * kTwipsPerInch -
                              1.5 * yOffset_);
}

float cPrinterInfo::PageRight() const {
    if (caps_.PixelsPerInchX <= 0) return 0;
    return static_cast<float>(caps_.PhysicalWidth / static_cast<double>(caps_.PixelsPerInchX) * kTwipsPerInch -
                              1.5 * xOffset_);
}

}  // namespace hlyd
