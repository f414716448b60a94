// The fonts of a PDF file, written when the pages are done and every character drawn is known.
#include <algorithm>
#include <cctype>
#include <set>

#include "platform/pdf/cff_table.h"
#include "platform/pdf/pdf_syntax.h"
#include "platform/pdf/pdf_writer.h"
#include "platform/pdf/truetype_subset.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

// The font's name as a PDF name: letters, digits and hyphens only.
// A character beyond ASCII is left out whole: its UTF-8 bytes are all above 0x7F.
std::string postScriptName(const FaceProgram& program) {
    std::string name;
    std::string style = program.styleName();
    for (unsigned char c : program.familyName() + (style.empty() || style == "Regular" ? std::string() : "-" + style))
        if (c < 0x80 && (std::isalnum(c) || c == '-')) name += static_cast<char>(c);
    return name.empty() ? "Font" : name;
}

// A subset's name begins with six capitals of its own. They come from the glyphs it keeps and the
// font's name, so that the same listing printed again gives the same file, and two different
// subsets of a font in two files are told apart by a reader that has both open.
std::string subsetTag(const std::set<std::uint32_t>& glyphs, const std::string& name) {
    std::uint64_t hash = 14695981039346656037ull;  // FNV-1a
    auto mix = [&hash](std::uint32_t byte) { hash = (hash ^ (byte & 0xFF)) * 1099511628211ull; };
    for (unsigned char c : name) mix(c);
    for (std::uint32_t glyph : glyphs) mix(glyph >> 8), mix(glyph);
    std::string tag;
    for (int i = 0; i < 6; ++i, hash /= 26) tag += static_cast<char>('A' + hash % 26);
    return tag + "+";
}

std::int16_t signed16(const std::string& s, std::size_t at) {
    if (at + 2 > s.size()) return 0;
    return static_cast<std::int16_t>(static_cast<unsigned char>(s[at]) << 8 | static_cast<unsigned char>(s[at + 1]));
}

// One "<code> <unicode>" line of a ToUnicode map: the code is the character's Windows-1252 byte.
void appendMapping(std::string& cmap, unsigned char character) {
    cmap += "<";
    appendHex8(cmap, character);
    cmap += "> <";
    appendHex16(cmap, cp1252CodePoint(character));
    cmap += ">\n";
}

std::string glyphName(int code) {
    std::string name = "g";
    appendHex8(name, static_cast<std::uint32_t>(code));
    return name;
}

}  // namespace

PdfWriter::Outlines PdfWriter::outlinesOf(const FaceProgram& program) {
    if (program.hasTable("glyf") && program.hasTable("loca")) return Outlines::TrueType;
    if (cffNameKeyed(program.table("CFF "))) return Outlines::Cff;
    return Outlines::Drawn;
}

void PdfWriter::writeFont(const Font& font) {
    if (font.outlines == Outlines::Drawn) writeDrawnFont(font);
    else writeCidFont(font);
}

void PdfWriter::writeToUnicode(std::uint32_t number, const std::string& codeSpace, const std::string& mappings,
                               int count) {
    writeStream(number,
                "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n" +
                        codeSpace + "\nendcodespacerange\n" + std::to_string(count) + " beginbfchar\n" + mappings +
                        "endbfchar\nendcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n");
}

// The map from the text's bytes to the glyph numbers, the CIDs: a listing's glyphs are a byte each
// in the pages, half of what glyph numbers as codes took, to write and to pack. At most a hundred
// entries go in a block.
void PdfWriter::writeCodeMap(std::uint32_t number, const std::string& name,
                             const std::vector<std::pair<int, std::uint32_t>>& codes) {
    const std::string system = "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>";
    std::string map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n" + system +
                      " def\n/CMapName /" + name +
                      " def\n/CMapType 1 def\n1 begincodespacerange\n<00> <FF>\n"
                      "endcodespacerange\n";
    constexpr std::size_t kBlock = 100;
    for (std::size_t first = 0; first < codes.size(); first += kBlock) {
        std::size_t last = std::min(codes.size(), first + kBlock);
        map += std::to_string(last - first) + " begincidchar\n";
        for (std::size_t i = first; i < last; ++i) {
            map += '<';
            appendHex8(map, static_cast<std::uint32_t>(codes[i].first));
            map += "> " + std::to_string(codes[i].second) + "\n";
        }
        map += "endcidchar\n";
    }
    map += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
    writeStream(number, map, " /Type /CMap /CMapName /" + name + " " + system);
}

// A TrueType or CFF program under a Type 0 font: the glyph numbers are the CIDs, the text's bytes
// the codes.
void PdfWriter::writeCidFont(const Font& font) {
    const PrintFace& face = *font.face;
    const bool trueType = font.outlines == Outlines::TrueType;
    std::set<std::uint32_t> glyphs;
    std::string widths, cmap;
    std::vector<std::pair<int, std::uint32_t>> codes;
    int mappings = 0;
    for (int c = 0; c < 256; ++c) {
        if (!font.used[static_cast<std::size_t>(c)]) continue;
        std::uint32_t glyph = face.glyph[static_cast<std::size_t>(c)];
        codes.emplace_back(c, glyph);
        appendMapping(cmap, static_cast<unsigned char>(c));
        ++mappings;
        if (!glyphs.insert(glyph).second) continue;
        widths += std::to_string(glyph) + " [" +
                  pdfNumber(face.advance[static_cast<std::size_t>(c)] / face.pixelSize * 1000) + "] ";
    }
    const FaceProgram& program = *face.program;
    // A CFF program goes in whole, so its name carries no subset tag.
    std::string name =
            trueType ? subsetTag(glyphs, postScriptName(program)) + postScriptName(program) : postScriptName(program);
    std::string file = trueType ? subsetTrueType([&](const char* tag) { return program.table(tag); }, glyphs)
                                : program.table("CFF ");
    std::string head = program.table("head");
    double perUnit = 1000.0 / std::max(1, program.unitsPerEm());
    double perPixel = 1000.0 / face.pixelSize;
    bool fixedPitch = face.advance['i'] == face.advance['W'];

    std::uint32_t cid = reserveObject(), descriptor = reserveObject(), fontFile = reserveObject(),
                  toUnicode = reserveObject();
    std::uint32_t codeMap = reserveObject();
    beginObject(font.object);
    write("<< /Type /Font /Subtype /Type0 /BaseFont /" + name + " /Encoding " + std::to_string(codeMap) +
          " 0 R /DescendantFonts [" + std::to_string(cid) + " 0 R] /ToUnicode " + std::to_string(toUnicode) +
          " 0 R >>\nendobj\n");
    beginObject(cid);
    write(std::string("<< /Type /Font /Subtype ") + (trueType ? "/CIDFontType2" : "/CIDFontType0") + " /BaseFont /" +
          name + " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor " +
          std::to_string(descriptor) + " 0 R" + (trueType ? " /CIDToGIDMap /Identity" : "") + " /DW 0 /W [" + widths +
          "] >>\nendobj\n");
    beginObject(descriptor);
    int flags = 32 | (fixedPitch ? 1 : 0) | (face.key.italic ? 64 : 0);
    write("<< /Type /FontDescriptor /FontName /" + name + " /Flags " + std::to_string(flags) + " /FontBBox [" +
          pdfNumber(signed16(head, 36) * perUnit) + " " + pdfNumber(signed16(head, 38) * perUnit) + " " +
          pdfNumber(signed16(head, 40) * perUnit) + " " + pdfNumber(signed16(head, 42) * perUnit) + "] /ItalicAngle " +
          (face.key.italic ? "-12" : "0") + " /Ascent " + pdfNumber(face.ascent * perPixel) + " /Descent " +
          pdfNumber(-face.descent * perPixel) + " /CapHeight " + pdfNumber(face.capHeight * perPixel) + " /StemV 80 " +
          (trueType ? "/FontFile2 " : "/FontFile3 ") + std::to_string(fontFile) + " 0 R >>\nendobj\n");
    writeStream(fontFile, file,
                trueType ? " /Length1 " + std::to_string(file.size()) : std::string(" /Subtype /CIDFontType0C"));
    writeToUnicode(toUnicode, "<00> <FF>", cmap, mappings);
    writeCodeMap(codeMap, "Halyard-" + std::to_string(&font - fonts_.data()), codes);
}

// A Type 3 font whose codes are the Windows-1252 characters, each glyph drawn from its outline.
void PdfWriter::writeDrawnFont(const Font& font) {
    const PrintFace& face = *font.face;
    int first = 256, last = -1;
    for (int c = 0; c < 256; ++c)
        if (font.used[static_cast<std::size_t>(c)]) first = std::min(first, c), last = std::max(last, c);
    if (last < 0) first = last = 0x20;

    // Glyph space in thousandths of the em, as for the other kinds of font.
    std::string widths;
    std::vector<std::pair<std::uint32_t, double>> asked;
    for (int c = first; c <= last; ++c) {
        auto at = static_cast<std::size_t>(c);
        double width = font.used[at] ? face.advance[at] / face.pixelSize * 1000 : 0;
        widths += pdfNumber(width) + " ";
        if (font.used[at]) asked.emplace_back(face.glyph[at], width);
    }
    FaceProgram::DrawnGlyphs drawn = face.program->drawnGlyphs(asked);
    std::string differences, procedures, cmap;
    int mappings = 0;
    std::size_t next = 0;
    for (int c = first; c <= last; ++c) {
        if (!font.used[static_cast<std::size_t>(c)]) continue;
        std::uint32_t procedure = reserveObject();
        writeStream(procedure, drawn.procedures.at(next++));
        differences += std::to_string(c) + " /" + glyphName(c) + " ";
        procedures += "/" + glyphName(c) + " " + std::to_string(procedure) + " 0 R ";
        appendMapping(cmap, static_cast<unsigned char>(c));
        ++mappings;
    }
    std::uint32_t toUnicode = reserveObject();
    beginObject(font.object);
    write("<< /Type /Font /Subtype /Type3 /Name /" + postScriptName(*face.program) + " /FontBBox [" +
          pdfNumber(drawn.left) + " " + pdfNumber(-drawn.bottom) + " " + pdfNumber(drawn.right) + " " +
          pdfNumber(-drawn.top) + "] /FontMatrix [0.001 0 0 0.001 0 0] /CharProcs << " + procedures +
          ">> /Encoding << /Type /Encoding /Differences [" + differences + "] >> /FirstChar " + std::to_string(first) +
          " /LastChar " + std::to_string(last) + " /Widths [" + widths + "] /Resources << >> /ToUnicode " +
          std::to_string(toUnicode) + " 0 R >>\nendobj\n");
    writeToUnicode(toUnicode, "<00> <FF>", cmap, mappings);
}

}  // namespace hlyd
