#include "platform/qt/design_advances.h"

#include <QByteArray>
#include <algorithm>

namespace hlyd {

namespace {

unsigned read16(const QByteArray& table, qsizetype at) {
    return static_cast<unsigned>(static_cast<unsigned char>(table[at]) << 8 |
                                 static_cast<unsigned char>(table[at + 1]));
}

// The engine's advance of one glyph, as the table's figure would be compared with it.
double engineAdvance(const QRawFont& design, quint32 glyph) {
    QPointF advance;
    if (!design.advancesForGlyphIndexes(&glyph, &advance, 1)) return -1;
    return advance.x();
}

}  // namespace

std::optional<std::vector<double>> designAdvances(const QRawFont& design, const std::vector<quint32>& glyphs) {
    QByteArray hhea = design.fontTable("hhea"), hmtx = design.fontTable("hmtx");
    constexpr qsizetype kLongMetricsCount = 34;
    if (glyphs.empty() || hhea.size() < kLongMetricsCount + 2) return std::nullopt;
    // Glyphs past the last long entry all take its advance: a monospaced font often lists one.
    unsigned longMetrics = read16(hhea, kLongMetricsCount);
    if (longMetrics == 0 || hmtx.size() < 4 * static_cast<qsizetype>(longMetrics)) return std::nullopt;
    std::vector<double> advances;
    advances.reserve(glyphs.size());
    for (quint32 glyph : glyphs)
        advances.push_back(read16(hmtx, 4 * static_cast<qsizetype>(std::min<quint32>(glyph, longMetrics - 1))));
    // The first glyph and the widest stand for the rest: a face the engine widens or narrows as a
    // whole differs in both.
    auto widest = std::max_element(advances.begin(), advances.end()) - advances.begin();
    for (auto sample : {decltype(widest){0}, widest})
        if (engineAdvance(design, glyphs[static_cast<std::size_t>(sample)]) !=
            advances[static_cast<std::size_t>(sample)])
            return std::nullopt;
    return advances;
}

}  // namespace hlyd
