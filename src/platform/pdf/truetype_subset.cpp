#include "platform/pdf/truetype_subset.h"

#include <cstring>
#include <map>
#include <utility>
#include <vector>

namespace hlyd {

namespace {

std::uint32_t read16(const std::string& s, std::size_t at) {
    if (at + 2 > s.size()) return 0;
    return static_cast<std::uint32_t>(static_cast<unsigned char>(s[at]) << 8 | static_cast<unsigned char>(s[at + 1]));
}

std::uint32_t read32(const std::string& s, std::size_t at) { return read16(s, at) << 16 | read16(s, at + 2); }

void put16(std::string& s, std::uint32_t v) {
    s += static_cast<char>(v >> 8 & 0xFF);
    s += static_cast<char>(v & 0xFF);
}

void put32(std::string& s, std::uint32_t v) {
    put16(s, v >> 16);
    put16(s, v & 0xFFFF);
}

void set16(std::string& s, std::size_t at, std::uint32_t v) {
    if (at + 2 > s.size()) return;
    s[at] = static_cast<char>(v >> 8 & 0xFF);
    s[at + 1] = static_cast<char>(v & 0xFF);
}

struct Glyphs {
    std::string_view glyf;
    std::vector<std::uint32_t> offsets;  // numGlyphs + 1

    std::string_view data(std::uint32_t glyph) const {
        if (glyph + 1 >= offsets.size()) return {};
        std::uint32_t from = offsets[glyph], to = offsets[glyph + 1];
        if (from >= to || to > glyf.size()) return {};
        return glyf.substr(from, to - from);
    }
};

std::vector<std::uint32_t> readLoca(const std::string& loca, bool longOffsets, std::uint32_t count) {
    std::vector<std::uint32_t> offsets(count + 1, 0);
    for (std::uint32_t i = 0; i <= count; ++i)
        offsets[i] = longOffsets ? read32(loca, std::size_t{i} * 4) : read16(loca, std::size_t{i} * 2) * 2;
    return offsets;
}

// The glyphs a composite glyph is built from.
std::vector<std::uint32_t> components(std::string_view glyph) {
    std::vector<std::uint32_t> parts;
    std::string g(glyph);
    if (g.size() < 10 || static_cast<std::int16_t>(read16(g, 0)) >= 0) return parts;
    constexpr std::uint32_t kWords = 0x1, kScale = 0x8, kMore = 0x20, kXYScale = 0x40, kTwoByTwo = 0x80;
    std::size_t at = 10;
    for (std::uint32_t flags = kMore; (flags & kMore) && at + 4 <= g.size();) {
        flags = read16(g, at);
        parts.push_back(read16(g, at + 2));
        at += 4 + ((flags & kWords) ? 4 : 2);
        if (flags & kScale) at += 2;
        else if (flags & kXYScale) at += 4;
        else if (flags & kTwoByTwo) at += 8;
    }
    return parts;
}

std::uint32_t checksum(const std::string& table) {
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < table.size(); at += 4) {
        std::uint32_t word = 0;
        for (std::size_t k = 0; k < 4; ++k)
            word = word << 8 | (at + k < table.size() ? static_cast<unsigned char>(table[at + k]) : 0u);
        sum += word;
    }
    return sum;
}

std::string assemble(const std::map<std::string, std::string>& tables) {
    std::uint32_t count = static_cast<std::uint32_t>(tables.size());
    std::uint32_t power = 1, log2 = 0;
    while (power * 2 <= count) power *= 2, ++log2;
    std::string font;
    put32(font, 0x00010000);
    put16(font, count);
    put16(font, power * 16);
    put16(font, log2);
    put16(font, count * 16 - power * 16);
    std::uint32_t offset = 12 + 16 * count;
    std::string body;
    for (const auto& [tag, data] : tables) {  // a map: the records sorted by tag, as the format wants
        font += tag;
        put32(font, checksum(data));
        put32(font, offset + static_cast<std::uint32_t>(body.size()));
        put32(font, static_cast<std::uint32_t>(data.size()));
        body += data;
        body.append((4 - data.size() % 4) % 4, '\0');
    }
    return font + body;
}

}  // namespace

std::string subsetTrueType(const FontTableReader& table, std::set<std::uint32_t> glyphs) {
    std::string head = table("head"), maxp = table("maxp"), loca = table("loca");
    std::string glyf = table("glyf");
    if (head.size() < 54 || maxp.size() < 6 || loca.empty() || glyf.empty()) return {};
    std::uint32_t count = read16(maxp, 4);
    Glyphs source{std::string_view(glyf), readLoca(loca, read16(head, 50) != 0, count)};

    glyphs.insert(0);  // the glyph for characters the font lacks is always there
    std::vector<std::uint32_t> pending(glyphs.begin(), glyphs.end());
    while (!pending.empty()) {
        std::uint32_t g = pending.back();
        pending.pop_back();
        for (std::uint32_t part : components(source.data(g)))
            if (part < count && glyphs.insert(part).second) pending.push_back(part);
    }

    std::string newGlyf, newLoca;
    for (std::uint32_t g = 0; g < count; ++g) {
        put32(newLoca, static_cast<std::uint32_t>(newGlyf.size()));
        if (!glyphs.count(g)) continue;
        newGlyf += source.data(g);
        newGlyf.append((4 - newGlyf.size() % 4) % 4, '\0');
    }
    put32(newLoca, static_cast<std::uint32_t>(newGlyf.size()));

    set16(head, 50, 1);                  // long offsets in loca
    std::memset(head.data() + 8, 0, 4);  // checksumAdjustment: no reader of an embedded font checks it
    std::map<std::string, std::string> tables{{"head", head}, {"maxp", maxp}, {"loca", newLoca}, {"glyf", newGlyf}};
    for (const char* tag : {"hhea", "hmtx", "cvt ", "fpgm", "prep"})
        if (std::string data = table(tag); !data.empty()) tables.emplace(tag, std::move(data));
    return assemble(tables);
}

}  // namespace hlyd
