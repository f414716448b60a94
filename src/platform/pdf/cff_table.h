#pragma once
// What the PDF writer needs to know of a font's CFF table before embedding it whole.
#include <string>

namespace hlyd {

// True for a readable CFF whose glyphs are addressed by name: embedded as a CIDFont, such a font
// takes the glyph numbers as CIDs. A CID-keyed font (one with a registry and ordering) would map
// them through its charset, and a table that cannot be read is no font to embed.
bool cffNameKeyed(const std::string& cff);

}  // namespace hlyd
