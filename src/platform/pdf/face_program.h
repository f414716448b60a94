#pragma once
// What the PDF writer embeds of a face: its font program's tables, its names, and, for a face whose
// outlines can be embedded as neither TrueType nor CFF, each glyph drawn by the file itself. A face
// may come from the toolkit's font engine or straight from its file; the writer sees only this.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace hlyd {

class FaceProgram {
public:
    virtual ~FaceProgram() = default;
    // The table of that four-letter tag, empty when the font has none.
    virtual std::string table(const char* tag) const = 0;
    virtual bool hasTable(const char* tag) const { return !table(tag).empty(); }
    // UTF-8.
    virtual std::string familyName() const = 0;
    virtual std::string styleName() const = 0;
    virtual int unitsPerEm() const = 0;

    // Glyphs drawn as Type 3 procedures in thousandths of the em: one procedure for each glyph and
    // advance asked, and the box of all their outlines, y downwards.
    struct DrawnGlyphs {
        std::vector<std::string> procedures;
        double left = 0, top = 0, right = 0, bottom = 0;
    };
    virtual DrawnGlyphs drawnGlyphs(const std::vector<std::pair<std::uint32_t, double>>& glyphAndWidth) const = 0;
};

}  // namespace hlyd
