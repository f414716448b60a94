#include "platform/pdf/print_faces.h"

#include <algorithm>

namespace hlyd {

std::size_t FaceKeyHash::operator()(const FaceKey& key) const {
    unsigned style = unsigned(key.bold) | unsigned(key.italic) << 1 | unsigned(key.underline) << 2 |
                     unsigned(key.strikeOut) << 3;
    std::size_t hash = std::hash<std::string>()(key.family);
    hash = hash * 31 + std::hash<double>()(key.points);
    return hash * 31 + style;
}

PrintFaces::PrintFaces(int dotsPerInch, FaceMaker maker) : dpi_(dotsPerInch), maker_(std::move(maker)) {}

const PrintFace& PrintFaces::face(const FaceKey& key) {
    auto found = byKey_.find(key);
    if (found != byKey_.end()) return *faces_[found->second];
    auto made = std::make_unique<PrintFace>();
    made->index = static_cast<std::uint16_t>(faces_.size());
    made->key = key;
    made->pixelSize = key.points * dpi_ / 72.0;
    FaceFigures figures = maker_(*made);
    bool alike = std::all_of(made->advance.begin() + 0x20, made->advance.end(),
                             [&](double a) { return a == made->advance[0x20]; });
    made->fixedAdvance = alike ? made->advance[0x20] : 0;
    made->ascent = figures.ascent;
    made->descent = figures.descent;
    made->capHeight = figures.capHeight;
    // Lines on paper stand at most 1.1 times the type size apart, as a typewriter's and a plain text
    // printer's do. The box of the common monospaced faces (1.13 of the size, more for some) spends
    // a line in thirty on room that only an accented capital under a descender uses; white is not
    // painted on paper, so no line covers its neighbour's descenders.
    made->lineSpacing = std::min(figures.ascent + figures.descent + figures.leading, 1.1 * made->pixelSize);
    made->underlinePosition = figures.underlinePosition;
    made->lineThickness = std::max(figures.lineThickness, 1.0);
    byKey_.emplace(key, made->index);
    faces_.push_back(std::move(made));
    return *faces_.back();
}

}  // namespace hlyd
