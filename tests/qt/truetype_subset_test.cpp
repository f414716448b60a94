// Fonts cut for embedding, read back table by table: an accented letter drawn from pieces keeps
// its pieces, and a glyph nobody drew loses its outline. A CFF program goes in whole only when its
// glyphs are addressed by name.
#include <gtest/gtest.h>

#include <QFont>
#include <QRawFont>
#include <map>

#include "platform/pdf/cff_table.h"
#include "platform/qt/classic_fonts.h"
#include "platform/pdf/truetype_subset.h"

namespace hlyd {
namespace {

std::uint32_t be16(const std::string& s, std::size_t at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(s.at(at)) << 8 |
                                      static_cast<unsigned char>(s.at(at + 1)));
}
std::uint32_t be32(const std::string& s, std::size_t at) { return be16(s, at) << 16 | be16(s, at + 2); }

std::map<std::string, std::string> tablesOf(const std::string& font) {
    std::map<std::string, std::string> tables;
    for (std::uint32_t i = 0, count = be16(font, 4); i < count; ++i) {
        std::size_t record = 12 + 16 * i;
        tables[font.substr(record, 4)] = font.substr(be32(font, record + 8), be32(font, record + 12));
    }
    return tables;
}

std::string tableOf(const QRawFont& raw, const char* tag) {
    QByteArray data = raw.fontTable(tag);
    return std::string(data.constData(), static_cast<std::size_t>(data.size()));
}

TEST(TrueTypeSubset, KeepsTheGlyphsUsedAndThePiecesTheyAreBuiltFrom) {
    QFont font;
    font.setFamilies({resolveFamily("Arial").family});
    QRawFont raw = QRawFont::fromFont(font);
    std::uint32_t accented = raw.glyphIndexesForString(QString::fromUtf8("\xc3\xa9")).value(0);
    std::uint32_t unused = raw.glyphIndexesForString("Z").value(0);
    ASSERT_NE(accented, 0u);

    std::string subset = subsetTrueType([&](const char* tag) { return tableOf(raw, tag); }, {accented});
    auto tables = tablesOf(subset);
    ASSERT_TRUE(tables.count("glyf") && tables.count("loca") && tables.count("hmtx") && tables.count("head"));
    EXPECT_EQ(be16(tables["head"], 50), 1u);  // long offsets
    const std::string& loca = tables["loca"];
    const std::string& glyf = tables["glyf"];
    auto length = [&](std::uint32_t g) { return be32(loca, 4 * (g + 1)) - be32(loca, 4 * g); };

    EXPECT_GT(length(accented), 0u);
    EXPECT_GT(length(0), 0u);  // the glyph of a missing character is always kept
    EXPECT_EQ(length(unused), 0u);
    // A composite names its pieces after a 10-byte header: each must have kept its outline.
    std::size_t at = be32(loca, 4 * accented);
    if (static_cast<std::int16_t>(be16(glyf, at)) < 0) {
        std::uint32_t piece = be16(glyf, at + 12);
        EXPECT_GT(length(piece), 0u) << "piece " << piece << " of the composite lost its outline";
    }
    EXPECT_LT(subset.size(), tableOf(raw, "glyf").size() / 4);
}

// A CFF table of one font named "A" whose top DICT is `dict`.
std::string cffWithTopDict(const std::string& dict) {
    std::string cff("\x01\x00\x04\x01", 4);
    cff += std::string(
            "\x00\x01\x01\x01\x02"
            "A",
            6);
    cff += std::string("\x00\x01\x01\x01", 4) + static_cast<char>(dict.size() + 1) + dict;
    return cff;
}

TEST(CffTable, OnlyAReadableNameKeyedProgramIsEmbeddedWhole) {
    // FontBBox of four small numbers, a real, and CharStrings at a two-byte offset.
    const std::string nameKeyed("\x8b\x8b\xf7\x00\x8b\x05\x1e\xa2\x5f\x0c\x02\x1c\x00\x40\x11", 15);
    EXPECT_TRUE(cffNameKeyed(cffWithTopDict(nameKeyed)));
    EXPECT_FALSE(cffNameKeyed(cffWithTopDict(std::string("\x8c\x8d\x8b\x0c\x1e", 5) + nameKeyed)));  // ROS
    EXPECT_FALSE(cffNameKeyed(cffWithTopDict(std::string("\x8b\x1d\x00", 3))));  // a number cut short
    std::string cut = cffWithTopDict(nameKeyed);
    EXPECT_FALSE(cffNameKeyed(cut.substr(0, cut.size() - 4)));
    EXPECT_FALSE(cffNameKeyed(""));
    // Two top DICTs, the first said to end past the last: read no further than the table.
    EXPECT_FALSE(cffNameKeyed(cut.substr(0, 10) + std::string("\x00\x02\x01\x01\xc8\x02\x8b", 7)));
    EXPECT_FALSE(cffNameKeyed(std::string("\x02\x00\x04\x01", 4) + cut.substr(4)));  // CFF2 is another format
}

}  // namespace
}  // namespace hlyd
