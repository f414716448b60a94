#pragma once
// The advance of each glyph as the font's design gives it, read from the font's horizontal metrics
// table. Asking the font engine instead loads every glyph's outline just for its width: for the 224
// characters of each face, that was most of what setting up a face cost a short print.
#include <QRawFont>
#include <optional>
#include <vector>

namespace hlyd {

// The advances of the glyphs in font units, in the order asked; none when the font has no usable
// table, or when the engine's own figures for a sample disagree with it (a bold made up from the
// regular face is wider than its table says), so that the caller asks the engine for every glyph.
// `design` is the font at its own em size.
std::optional<std::vector<double>> designAdvances(const QRawFont& design, const std::vector<quint32>& glyphs);

}  // namespace hlyd
