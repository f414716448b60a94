#pragma once
// What the page geometry needs of the printer's device: the sheet, and the unprintable strips at
// its edges, read once when the object is made.
#include <cstdint>

#include "platform/printer.h"

namespace hlyd {

class cPrinterInfo {
public:
    // Reads the capabilities of the current printer; with none installed every figure is 0.
    cPrinterInfo();
    explicit cPrinterInfo(const PrinterCaps& caps);

    // The last Y and X on the sheet that can be printed, in twips. The strip at the far edge is
    // taken to be half as wide again as the one at the near edge.
    float PageBottom() const;
    float PageLeft() const { return static_cast<float>(xOffset_); }
    float PageRight() const;
    float PageTop() const { return static_cast<float>(yOffset_); }

    // The unprintable strips at the left and at the top: in twips, in inches and in centimetres
    // (the MM names are kept for the callers that know them so), each a whole number.
    std::int32_t XOffset() const { return xOffset_; }
    std::int32_t XOffsetIN() const { return xOffsetIn_; }
    std::int32_t XOffsetMM() const { return xOffsetCm_; }
    std::int32_t YOffset() const { return yOffset_; }
    std::int32_t YOffsetIN() const { return yOffsetIn_; }
    std::int32_t YOffsetMM() const { return yOffsetCm_; }

private:
    PrinterCaps caps_;
    std::int32_t xOffset_ = 0, xOffsetIn_ = 0, xOffsetCm_ = 0;
    std::int32_t yOffset_ = 0, yOffsetIn_ = 0, yOffsetCm_ = 0;
};

}  // namespace hlyd
