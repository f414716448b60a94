// Advances read from a font's metrics table against the font engine's own, glyph for glyph: in
// faces whose table lists every glyph, in a monospaced face that lists four and lets the rest
// take the last, and in a bold that the engine makes up from a regular face, where the table is
// wrong and must be declined.
#include <gtest/gtest.h>

#include <QFont>
#include <QRawFont>

#include "platform/qt/classic_fonts.h"
#include "platform/qt/design_advances.h"

namespace hlyd {
namespace {

struct Face {
    const char* family;
    bool bold, italic;
    bool tableMustServe;  // false where the engine may change the design's figures
};

QRawFont designOf(const Face& face) {
    QFont font;
    font.setFamilies({resolveFamily(face.family).family});
    font.setBold(face.bold);
    font.setItalic(face.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    QRawFont design = QRawFont::fromFont(font);
    design.setPixelSize(design.unitsPerEm());
    return design;
}

class DesignAdvances : public testing::TestWithParam<Face> {};

TEST_P(DesignAdvances, AreTheEnginesFiguresOrNone) {
    QRawFont design = designOf(GetParam());
    ASSERT_TRUE(design.isValid());
    std::vector<quint32> glyphs;
    for (char16_t c = 0x20; c < 0x250; ++c) glyphs.push_back(design.glyphIndexesForString(QString(QChar(c))).value(0));
    std::optional<std::vector<double>> advances = designAdvances(design, glyphs);
    if (GetParam().tableMustServe) {
        ASSERT_TRUE(advances);
    }
    if (!advances) return;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        QPointF engine;
        ASSERT_TRUE(design.advancesForGlyphIndexes(&glyphs[i], &engine, 1));
        EXPECT_EQ((*advances)[i], engine.x()) << "glyph " << glyphs[i];
    }
}

INSTANTIATE_TEST_SUITE_P(Faces, DesignAdvances,
                         testing::Values(Face{"Courier New", false, false, true}, Face{"Courier New", true, true, true},
                                         Face{"Arial", true, false, true}, Face{"Times New Roman", false, true, true},
                                         Face{"DejaVu Sans Mono", false, false, true},
                                         Face{"Droid Sans Fallback", true, false, false}));

TEST(DesignAdvancesDeclined, WithoutATableOrGlyphs) {
    EXPECT_FALSE(designAdvances(QRawFont(), {0u, 1u}));
    EXPECT_FALSE(designAdvances(designOf({"Courier New", false, false, true}), {}));
}

}  // namespace
}  // namespace hlyd
