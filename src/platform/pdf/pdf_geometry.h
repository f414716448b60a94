#pragma once
// Places and sizes on a PDF's sheet, in points.

namespace hlyd {

struct PdfPoint {
    double x = 0, y = 0;
};

struct PdfSize {
    double width = 0, height = 0;
};

}  // namespace hlyd
