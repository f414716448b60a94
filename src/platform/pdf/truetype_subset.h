#pragma once
// A TrueType font cut down to the glyphs a document uses, for embedding: the glyph numbers stay as
// they are (the PDF addresses glyphs by number), the outlines of every other glyph are left out.
// Composite glyphs keep the glyphs they are built from.
#include <cstdint>
#include <functional>
#include <set>
#include <string>

namespace hlyd {

// The font's table of that four-letter tag, empty when it has none.
using FontTableReader = std::function<std::string(const char* tag)>;

// The subset as a font file; empty when the font has no TrueType outlines to cut.
std::string subsetTrueType(const FontTableReader& table, std::set<std::uint32_t> glyphs);

}  // namespace hlyd
