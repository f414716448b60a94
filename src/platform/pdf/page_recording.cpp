#include "platform/pdf/page_recording.h"

#include <cmath>

namespace hlyd {

namespace {

// Less than a hundredth of a pixel apart: the pen went on from where the text before left it.
bool sameSpot(double a, double b) { return std::fabs(a - b) < 0.01; }

}  // namespace

void PageRecording::clear() {
    ops_.clear();
    text_.clear();
}

void PageRecording::text(double x, double y, std::uint16_t face, std::uint32_t colour, std::string_view bytes,
                         double width, bool artifact, std::string_view actual) {
    if (!ops_.empty() && actual.empty()) {
        Op& last = ops_.back();
        if (last.kind == Kind::Text && last.face == face && last.colour == colour && last.artifact == artifact &&
            sameSpot(last.y1, y) && sameSpot(last.x2, x) && last.start + last.length == text_.size()) {
            text_.append(bytes);
            last.length += static_cast<std::uint32_t>(bytes.size());
            last.x2 = x + width;
            return;
        }
    }
    ops_.push_back({Kind::Text, face, 0, colour, x, y, x + width, y, static_cast<std::uint32_t>(text_.size()),
                    static_cast<std::uint32_t>(bytes.size()), artifact, static_cast<std::uint32_t>(actual.size())});
    text_.append(bytes);
    text_.append(actual);
}

void PageRecording::line(double x1, double y1, double x2, double y2, std::uint32_t colour, int width) {
    ops_.push_back({Kind::Line, 0, width, colour, x1, y1, x2, y2, 0, 0, false, 0});
}

void PageRecording::box(double x1, double y1, double x2, double y2, std::uint32_t colour) {
    ops_.push_back({Kind::Box, 0, 0, colour, x1, y1, x2, y2, 0, 0, false, 0});
}

}  // namespace hlyd
