#pragma once
// A recorded page drawn on a system printer's page, in the order it was recorded.
#include <QPainter>

#include "platform/pdf/page_recording.h"
#include "platform/pdf/print_faces.h"

namespace hlyd {

void replayPage(QPainter& painter, const PageRecording& page, const PrintFaces& faces);

}  // namespace hlyd
