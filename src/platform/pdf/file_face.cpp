#include "platform/pdf/file_face.h"

#include <cmath>
#include <map>

#include "platform/os.h"
#include "platform/pdf/cff_table.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

// A malformed table: the file is not answered.
struct Unreadable {};

std::uint32_t be16(std::string_view s, std::size_t at) {
    if (at + 2 > s.size()) throw Unreadable{};
    return static_cast<std::uint32_t>(static_cast<unsigned char>(s[at]) << 8 | static_cast<unsigned char>(s[at + 1]));
}
std::int32_t signed16(std::string_view s, std::size_t at) { return static_cast<std::int16_t>(be16(s, at)); }
std::uint32_t be32(std::string_view s, std::size_t at) { return be16(s, at) << 16 | be16(s, at + 2); }

class FontFile : public FaceProgram {
public:
    explicit FontFile(std::string data) : data_(std::move(data)) {}

    // False for a collection or a file that is no font.
    bool readDirectory() {
        std::uint32_t version = be32(data_, 0);
        if (version != 0x00010000u && version != 0x4F54544Fu && version != 0x74727565u) return false;
        for (std::uint32_t i = 0, count = be16(data_, 4); i < count; ++i) {
            std::size_t record = 12 + 16 * std::size_t{i};
            std::size_t offset = be32(data_, record + 8), length = be32(data_, record + 12);
            if (offset > data_.size() || length > data_.size() - offset) return false;
            tables_.emplace(data_.substr(record, 4), std::string_view(data_).substr(offset, length));
        }
        return true;
    }
    std::string_view view(const char* tag) const {
        auto found = tables_.find(tag);
        return found == tables_.end() ? std::string_view() : found->second;
    }
    std::string table(const char* tag) const override { return std::string(view(tag)); }
    bool hasTable(const char* tag) const override { return !view(tag).empty(); }
    std::string familyName() const override { return family_; }
    std::string styleName() const override { return style_; }
    int unitsPerEm() const override { return unitsPerEm_; }
    DrawnGlyphs drawnGlyphs(const std::vector<std::pair<std::uint32_t, double>>&) const override { return {}; }

    std::string family_, style_;
    int unitsPerEm_ = 0;

private:
    std::string data_;
    std::map<std::string, std::string_view, std::less<>> tables_;
};

// A name as the font engine reads it: the Windows record in English (else the first Windows one),
// else the Macintosh one in English, else a Unicode one; every character beyond ASCII a '?'.
std::string nameOf(std::string_view name, std::uint32_t id) {
    std::size_t strings = be16(name, 4);
    int windows = -1, mac = -1, unicode = -1;
    for (std::uint32_t n = 0, count = be16(name, 2); n < count; ++n) {
        std::size_t record = 6 + 12 * std::size_t{n};
        if (be16(name, record + 6) != id || be16(name, record + 8) == 0) continue;
        std::uint32_t platform = be16(name, record), language = be16(name, record + 4);
        if (platform == 3 && (windows < 0 || (language & 0x3FF) == 9)) windows = static_cast<int>(n);
        if (platform == 1 && language == 0) mac = static_cast<int>(n);
        if (platform == 0) unicode = static_cast<int>(n);
    }
    int chosen = windows >= 0 ? windows : mac >= 0 ? mac : unicode;
    if (chosen < 0) return {};
    std::size_t record = 6 + 12 * static_cast<std::size_t>(chosen);
    std::size_t length = be16(name, record + 8), offset = strings + be16(name, record + 10);
    bool wide = be16(name, record) != 1;
    std::string text;
    for (std::size_t at = offset; at < offset + length; at += wide ? 2 : 1) {
        std::uint32_t c = wide ? be16(name, at) : static_cast<unsigned char>(name.at(at));
        if (c == 0) break;
        text += c < 32 || c > 127 ? '?' : static_cast<char>(c);
    }
    return text;
}

// The engine's Unicode map: one of full Unicode if the font has one, else one of the basic plane.
std::size_t unicodeMap(std::string_view cmap) {
    std::size_t full = 0, basic = 0;
    for (std::uint32_t i = 0, count = be16(cmap, 2); i < count; ++i) {
        std::size_t record = 4 + 8 * std::size_t{i};
        std::uint32_t platform = be16(cmap, record), encoding = be16(cmap, record + 2);
        std::size_t offset = be32(cmap, record + 4);
        if (platform == 3 && encoding == 0) throw Unreadable{};  // a symbol font: the engine maps it its own way
        std::uint32_t format = be16(cmap, offset);
        bool isUnicode = platform == 0 || (platform == 3 && (encoding == 1 || encoding == 10));
        if (isUnicode && format == 12) full = offset;
        else if (isUnicode && format == 4) basic = offset;
    }
    if (full == 0 && basic == 0) throw Unreadable{};
    return full != 0 ? full : basic;
}

std::uint32_t glyphOf(std::string_view cmap, std::size_t map, std::uint32_t character) {
    if (be16(cmap, map) == 12) {
        for (std::uint32_t g = 0, groups = be32(cmap, map + 12); g < groups; ++g) {
            std::size_t group = map + 16 + 12 * std::size_t{g};
            std::uint32_t first = be32(cmap, group), last = be32(cmap, group + 4);
            if (character >= first && character <= last) return be32(cmap, group + 8) + character - first;
        }
        return 0;
    }
    std::size_t segments = be16(cmap, map + 6) / 2;
    for (std::size_t s = 0; s < segments; ++s) {
        std::size_t endAt = map + 14 + 2 * s, startAt = endAt + 2 + 2 * segments;
        std::size_t deltaAt = startAt + 2 * segments, rangeAt = deltaAt + 2 * segments;
        if (character > be16(cmap, endAt)) continue;
        std::uint32_t start = be16(cmap, startAt);
        if (character < start) return 0;
        std::uint32_t delta = be16(cmap, deltaAt), range = be16(cmap, rangeAt);
        if (range == 0) return (character + delta) & 0xFFFF;
        std::uint32_t glyph = be16(cmap, rangeAt + range + 2 * std::size_t{character - start});
        return glyph == 0 ? 0 : (glyph + delta) & 0xFFFF;
    }
    return 0;
}

// The engine's fixed-point arithmetic: 26.6 lengths, 16.16 scales, rounded half away from zero.
std::int64_t mulFix(std::int64_t a, std::int64_t b) {
    bool negative = (a < 0) != (b < 0);
    std::int64_t c = ((a < 0 ? -a : a) * (b < 0 ? -b : b) + 0x8000) >> 16;
    return negative ? -c : c;
}
std::int64_t divFix(std::int64_t a, std::int64_t b) { return ((a << 16) + b / 2) / b; }
double pixels(std::int64_t fixed) { return static_cast<double>(fixed) / 64.0; }

void fillCharacters(PrintFace& face, const FontFile& font) {
    std::string_view cmap = font.view("cmap"), hhea = font.view("hhea"), hmtx = font.view("hmtx");
    std::size_t map = unicodeMap(cmap);
    std::uint32_t longMetrics = be16(hhea, 34), glyphCount = be16(font.view("maxp"), 4);
    if (longMetrics == 0) throw Unreadable{};
    double scale = face.pixelSize / font.unitsPerEm_;
    for (int c = 0x20; c < 256; ++c) {
        std::uint32_t glyph = glyphOf(cmap, map, cp1252CodePoint(static_cast<unsigned char>(c)));
        // The engine draws a no-break space the font lacks as a blank.
        if (glyph == 0 && c == 0xA0) glyph = face.glyph[0x20];
        if (glyph >= glyphCount) throw Unreadable{};
        auto at = static_cast<std::size_t>(c);
        face.glyph[at] = glyph;
        face.advance[at] = be16(hmtx, 4 * std::size_t{std::min(glyph, longMetrics - 1)}) * scale;
    }
}

// A figure of the font's design at the pixel size as the toolkit's engine scales it: to a 64th of a
// pixel, the product cut, the quotient rounded.
double scaled(std::int64_t design, double pixelSize, int unitsPerEm) {
    auto product = static_cast<std::int64_t>(static_cast<double>(design) * pixelSize * 64);
    std::int64_t half = unitsPerEm / 2;
    return static_cast<double>(product >= 0 ? (product + half) / unitsPerEm : (product - half) / unitsPerEm) / 64.0;
}

FaceFigures figuresOf(const PrintFace& face, const FontFile& font) {
    std::string_view hhea = font.view("hhea"), os2 = font.view("OS/2"), post = font.view("post");
    std::int64_t winAscent = be16(os2, 74), winDescent = be16(os2, 76);
    // Metrics the engine takes from elsewhere: a font that asks for its typographic ones, one
    // without those of the Windows header, one without a cap height of its own.
    if ((winAscent == 0 && winDescent == 0) || (be16(os2, 62) & 0x180) != 0 || be16(os2, 0) < 2) throw Unreadable{};
    int em = font.unitsPerEm_;
    std::int64_t size = std::lround(face.pixelSize * 64);
    std::int64_t yScale = divFix(size, em);
    std::int64_t thickness = mulFix(signed16(post, 10), yScale);
    // The engine's underline position is the top of the line; ours its middle.
    std::int64_t underline = -mulFix(signed16(post, 8) - signed16(post, 10) / 2, yScale) - thickness / 2;
    return {scaled(winAscent, face.pixelSize, em),
            scaled(winDescent, face.pixelSize, em),
            scaled(signed16(hhea, 8), face.pixelSize, em),
            pixels(mulFix(signed16(os2, 88), yScale)),
            pixels(underline),
            pixels(thickness)};
}

}  // namespace

namespace {

std::shared_ptr<const FontFile> readFontFile(const std::string& path) {
    std::string data;
    if (os::readWholeFile(path, data) != 0) return nullptr;
    auto font = std::make_shared<FontFile>(std::move(data));
    if (!font->readDirectory()) return nullptr;
    bool trueType = font->hasTable("glyf") && font->hasTable("loca");
    if (!trueType && !cffNameKeyed(font->table("CFF "))) return nullptr;
    font->unitsPerEm_ = static_cast<int>(be16(font->view("head"), 18));
    if (font->unitsPerEm_ == 0) return nullptr;
    std::string_view name = font->view("name");
    font->family_ = nameOf(name, 16);
    if (font->family_.empty()) font->family_ = nameOf(name, 1);
    font->style_ = nameOf(name, 17);
    if (font->style_.empty()) font->style_ = nameOf(name, 2);
    return font;
}

// A print asks for a face in several sizes and styles: each file is read once a run.
std::shared_ptr<const FontFile> fontFileAt(const std::string& path) {
    static std::map<std::string, std::shared_ptr<const FontFile>> read;
    auto known = read.find(path);
    if (known != read.end()) return known->second;
    std::shared_ptr<const FontFile> font;
    try {
        font = readFontFile(path);
    } catch (const Unreadable&) {
    } catch (const std::out_of_range&) {}
    return read[path] = font;
}

}  // namespace

std::optional<FaceFigures> readFileFace(PrintFace& face, const std::string& path) {
    std::shared_ptr<const FontFile> font = fontFileAt(path);
    if (!font) return std::nullopt;
    try {
        fillCharacters(face, *font);
        FaceFigures figures = figuresOf(face, *font);
        face.program = std::move(font);
        return figures;
    } catch (const Unreadable&) {
        return std::nullopt;
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

}  // namespace hlyd
