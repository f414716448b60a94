#include "display/display_state.h"
#include "display/view_map.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace hlyd {

namespace {

ViewMap& map() { return displayState().viewMap; }

float distanceToLine(const DrawnStretch& s, float y) {
    if (y < s.top) return s.top - y;
    if (y >= s.bottom) return y - s.bottom + 1;
    return 0;
}

// The nearest edge of the stretch to x, as a place in the line.
TextPlace nearestEdge(const DrawnStretch& s, float x) {
    const std::vector<float>& edges = stretchEdges(s);
    auto after = std::lower_bound(edges.begin(), edges.end(), x);
    std::size_t k = static_cast<std::size_t>(after - edges.begin());
    if (k == edges.size()) k = edges.size() - 1;
    else if (k > 0 && x - edges[k - 1] < edges[k] - x) --k;
    return {s.record, s.column + static_cast<std::int32_t>(k)};
}

// Left of a record's first screen line is the start of its line, indentation and all, so that a
// drag from the margin takes whole lines as the file has them; left of a wrapped line's
// continuation is where that continuation starts.
bool firstScreenLine(const ViewMap& m, const DrawnStretch& s) {
    return std::none_of(m.stretches.begin(), m.stretches.end(),
                        [&](const DrawnStretch& other) { return other.record == s.record && other.top < s.top; });
}

}  // namespace

ViewMap& viewMap() { return map(); }

bool before(TextPlace a, TextPlace b) { return a.record != b.record ? a.record < b.record : a.column < b.column; }

std::optional<TextPlace> placeAt(const ViewMap& m, float x, float y) {
    float nearest = std::numeric_limits<float>::max();
    for (const DrawnStretch& s : m.stretches) nearest = std::min(nearest, distanceToLine(s, y));
    const DrawnStretch* left = nullptr;
    const DrawnStretch* right = nullptr;
    for (const DrawnStretch& s : m.stretches) {
        if (distanceToLine(s, y) != nearest || s.length <= 0) continue;
        if (x >= s.left && x <= s.right) return nearestEdge(s, x);
        if (s.right < x && (!left || s.right > left->right)) left = &s;
        if (s.left > x && (!right || s.left < right->left)) right = &s;
    }
    if (left) return TextPlace{left->record, left->column + left->length};
    if (right) return TextPlace{right->record, firstScreenLine(m, *right) ? 0 : right->column};
    return std::nullopt;
}

std::vector<TwipBox> boxesOf(const ViewMap& m, TextPlace from, TextPlace to) {
    std::vector<TwipBox> boxes;
    if (!before(from, to)) return boxes;
    for (const DrawnStretch& s : m.stretches) {
        if (s.record < from.record || s.record > to.record) continue;
        std::int32_t begin = s.record == from.record ? std::max(s.column, from.column) : s.column;
        std::int32_t end = s.record == to.record ? std::min(s.column + s.length, to.column) : s.column + s.length;
        if (begin >= end) continue;
        auto edgeAt = [&s](std::int32_t column) {
            if (column == s.column) return s.left;
            if (column == s.column + s.length) return s.right;
            return stretchEdges(s)[static_cast<std::size_t>(column - s.column)];
        };
        TwipBox box{edgeAt(begin), s.top, edgeAt(end), s.bottom};
        // A word and the blanks after it light as one box, not as pieces side by side.
        if (!boxes.empty() && boxes.back().top == box.top && boxes.back().bottom == box.bottom &&
            std::abs(boxes.back().right - box.left) < 1)
            boxes.back().right = box.right;
        else boxes.push_back(box);
    }
    return boxes;
}

bool placeShown(const ViewMap& m, TextPlace place, float bottom) {
    return std::any_of(m.stretches.begin(), m.stretches.end(), [&](const DrawnStretch& s) {
        return s.record == place.record && place.column >= s.column && place.column <= s.column + s.length &&
               s.bottom <= bottom;
    });
}

}  // namespace hlyd
