#include "platform/surface.h"

namespace hlyd {

namespace {
Surface* display = nullptr;
Surface* printer = nullptr;
}  // namespace

Surface* displaySurface() { return display; }
void setDisplaySurface(Surface* surface) { display = surface; }
Surface* printerSurface() { return printer; }
void setPrinterSurface(Surface* surface) { printer = surface; }
Surface* surfaceFor(int displayOrPrint) { return displayOrPrint == 2 ? printer : display; }

}  // namespace hlyd
