#include "platform/surface.h"

namespace hlyd {

namespace {
Surface* display = nullptr;
Surface* printer = nullptr;
}  // namespace

int measuredLines(std::string_view text) {
    int lines = 1;
    for (std::size_t at = text.find("\r\n"); at != std::string_view::npos; at = text.find("\r\n", at + 2)) ++lines;
    return lines;
}

Surface* displaySurface() { return display; }
void setDisplaySurface(Surface* surface) { display = surface; }
Surface* printerSurface() { return printer; }
void setPrinterSurface(Surface* surface) { printer = surface; }
Surface* surfaceFor(int displayOrPrint) { return displayOrPrint == 2 ? printer : display; }

}  // namespace hlyd
