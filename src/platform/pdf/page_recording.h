#pragma once
// The page being drawn, kept as a short list of drawing calls until the page is finished: only a
// finished page reaches the device, so that a document killed halfway leaves its last page off the
// paper, and only one page is ever held. Positions are in the device's pixels.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hlyd {

// Colours are 0xAARRGGBB.

class PageRecording {
public:
    void clear();
    bool empty() const { return ops_.empty(); }
    // Text whose top left is at (x, y), in a face of the printer's faces. Text that goes on where
    // the last text ended, in the same face and colour, joins it: the device gets fewer, longer runs.
    // An artifact is drawn but is no part of the page's text (a mark of the layout); a text with
    // `actual` stands in for those bytes, which a reader gets back.
    void text(double x, double y, std::uint16_t face, std::uint32_t colour, std::string_view bytes, double width,
              bool artifact = false, std::string_view actual = {});
    void line(double x1, double y1, double x2, double y2, std::uint32_t colour, int width);
    void box(double x1, double y1, double x2, double y2, std::uint32_t colour);
    std::size_t textBytes() const { return text_.size(); }

    enum class Kind : std::uint8_t { Text, Line, Box };
    struct Op {
        Kind kind;
        std::uint16_t face;
        int width;
        std::uint32_t colour;
        double x1, y1, x2, y2;        // a text's end is (x2, y1)
        std::uint32_t start, length;  // of a text, in text_
        bool artifact = false;
        std::uint32_t actualLength = 0;  // of the bytes it stands for, in text_ behind its own
    };
    const std::vector<Op>& ops() const { return ops_; }
    std::string_view textOf(const Op& op) const { return std::string_view(text_).substr(op.start, op.length); }
    std::string_view actualOf(const Op& op) const {
        return std::string_view(text_).substr(op.start + op.length, op.actualLength);
    }

private:
    std::vector<Op> ops_;
    std::string text_;
};

}  // namespace hlyd
