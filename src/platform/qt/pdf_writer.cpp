#include "platform/qt/pdf_writer.h"

#include <QByteArray>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

#include "platform/qt/qt_text.h"
#include "platform/qt/truetype_subset.h"

namespace hlyd {

namespace {

constexpr std::uint32_t kCatalog = 1, kPageTree = 2, kResources = 3, kInfo = 4;

void appendNumber(std::string& out, double value) {
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    if (ec != std::errc()) return out.append("0"), void();
    char* last = end;
    while (last > buffer && last[-1] == '0') --last;
    if (last > buffer && last[-1] == '.') --last;
    if (last == buffer || (last - buffer == 1 && buffer[0] == '-')) return out.append("0"), void();
    out.append(buffer, last);
}

std::string number(double value) {
    std::string s;
    appendNumber(s, value);
    return s;
}

void appendColour(std::string& out, QRgb rgb, const char* op) {
    appendNumber(out, qRed(rgb) / 255.0);
    out += ' ';
    appendNumber(out, qGreen(rgb) / 255.0);
    out += ' ';
    appendNumber(out, qBlue(rgb) / 255.0);
    out += ' ';
    out += op;
    out += '\n';
}

const char kHex[] = "0123456789ABCDEF";

void appendHex16(std::string& out, std::uint32_t v) {
    out += kHex[v >> 12 & 0xF];
    out += kHex[v >> 8 & 0xF];
    out += kHex[v >> 4 & 0xF];
    out += kHex[v & 0xF];
}

std::string compressed(const std::string& data) {
    // Level 1: a listing's file comes out a third larger than at the default level, still smaller
    // than its source, and is written 1.6 times as fast; the time is what a print waits for.
    QByteArray packed = qCompress(reinterpret_cast<const uchar*>(data.data()), static_cast<qsizetype>(data.size()), 1);
    std::string stream = packed.toStdString();
    stream.erase(0, std::min<std::size_t>(4, stream.size()));  // Qt's own length before the zlib stream
    return stream;
}

// The font's name as a PDF name: letters, digits and hyphens only.
std::string postScriptName(const QRawFont& raw) {
    std::string name;
    QString style = raw.styleName();
    for (QChar c : raw.familyName() + (style.isEmpty() || style == QLatin1String("Regular") ? QString() : "-" + style))
        if (c.isLetterOrNumber() && c.unicode() < 0x80) name += static_cast<char>(c.unicode());
        else if (c == QLatin1Char('-')) name += '-';
    return name.empty() ? "Font" : name;
}

// A subset's name begins with six capitals of its own.
std::string subsetTag(std::size_t index) {
    std::string tag = "HLYD";
    tag += static_cast<char>('A' + index / 26 % 26);
    tag += static_cast<char>('A' + index % 26);
    return tag + "+";
}

std::string tableOf(const QRawFont& raw, const char* tag) {
    QByteArray data = raw.fontTable(tag);
    return std::string(data.constData(), static_cast<std::size_t>(data.size()));
}

std::int16_t signed16(const std::string& s, std::size_t at) {
    if (at + 2 > s.size()) return 0;
    return static_cast<std::int16_t>(static_cast<unsigned char>(s[at]) << 8 | static_cast<unsigned char>(s[at + 1]));
}

}  // namespace

PdfWriter::PdfWriter(QIODevice& out) : out_(out) {
    write("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
    for (std::uint32_t n = 1; n <= kInfo; ++n) reserveObject();
}

std::uint32_t PdfWriter::reserveObject() {
    offsets_.push_back(0);
    return static_cast<std::uint32_t>(offsets_.size() - 1);
}

void PdfWriter::beginObject(std::uint32_t number) {
    offsets_[number] = written_;
    write(std::to_string(number) + " 0 obj\n");
}

void PdfWriter::write(std::string_view data) {
    out_.write(data.data(), static_cast<qint64>(data.size()));
    written_ += data.size();
}

void PdfWriter::writeStream(std::uint32_t number, const std::string& data, const std::string& dictionary) {
    std::string packed = compressed(data);
    beginObject(number);
    write("<< /Length " + std::to_string(packed.size()) + " /Filter /FlateDecode" + dictionary + " >>\nstream\n");
    write(packed);
    write("\nendstream\nendobj\n");
}

std::size_t PdfWriter::fontOf(const PrintFace& face) {
    if (fontOfFace_.size() <= face.index) fontOfFace_.resize(face.index + 1u, -1);
    int& known = fontOfFace_[face.index];
    if (known >= 0) return static_cast<std::size_t>(known);
    for (std::size_t i = 0; i < fonts_.size(); ++i) {
        const FaceKey& other = fonts_[i].face->key;
        if (other.family == face.key.family && other.bold == face.key.bold && other.italic == face.key.italic)
            return static_cast<std::size_t>(known = static_cast<int>(i));
    }
    fonts_.push_back({&face, reserveObject(), {}});
    return static_cast<std::size_t>(known = static_cast<int>(fonts_.size() - 1));
}

void PdfWriter::appendText(std::string& content, const PageRecording& page, const PageRecording::Op& op,
                           const PrintFace& face) {
    std::size_t font = fontOf(face);
    std::string_view text = page.textOf(op);
    double baseline = op.y1 + face.ascent;
    content += "BT /F";
    content += std::to_string(font);
    content += ' ';
    appendNumber(content, face.pixelSize);
    content += " Tf 1 0 0 -1 ";
    appendNumber(content, op.x1);
    content += ' ';
    appendNumber(content, baseline);
    content += " Tm [<";
    std::bitset<256>& used = fonts_[font].used;
    for (unsigned char c : text) {
        if (face.glyph[c] != 0) {
            used.set(c);
            appendHex16(content, face.glyph[c]);
        } else if (face.advance[c] != 0) {  // no glyph, yet room as measured
            content += "> ";
            appendNumber(content, -face.advance[c] / face.pixelSize * 1000);
            content += " <";
        }
    }
    content += ">] TJ ET\n";
    if (face.key.underline || face.key.strikeOut) {
        double y = face.key.underline ? baseline + face.underlinePosition : baseline - face.ascent * 0.3;
        appendNumber(content, op.x1);
        content += ' ';
        appendNumber(content, y);
        content += ' ';
        appendNumber(content, op.x2 - op.x1);
        content += ' ';
        appendNumber(content, face.lineThickness);
        content += " re f\n";
    }
}

void PdfWriter::addPage(const PageRecording& page, const PrintFaces& faces, int dotsPerInch, QSizeF sheet,
                        QPointF origin) {
    // Device pixels, y downwards from the printable area's corner, as the page was recorded.
    double scale = 72.0 / dotsPerInch;
    std::string content = number(scale) + " 0 0 " + number(-scale) + " " + number(origin.x()) + " " +
                          number(sheet.height() - origin.y()) + " cm 2 J\n";
    bool fillSet = false, strokeSet = false;
    QRgb fill = 0, stroke = 0;
    for (const PageRecording::Op& op : page.ops()) {
        bool stroking = op.kind == PageRecording::Kind::Line;
        QRgb& current = stroking ? stroke : fill;
        bool& set = stroking ? strokeSet : fillSet;
        if (!set || current != op.colour) {
            appendColour(content, op.colour, stroking ? "RG" : "rg");
            current = op.colour;
            set = true;
        }
        switch (op.kind) {
            case PageRecording::Kind::Text: appendText(content, page, op, faces.byIndex(op.face)); break;
            case PageRecording::Kind::Line:
                content += std::to_string(op.width) + " w ";
                appendNumber(content, op.x1);
                content += ' ';
                appendNumber(content, op.y1);
                content += " m ";
                appendNumber(content, op.x2);
                content += ' ';
                appendNumber(content, op.y2);
                content += " l S\n";
                break;
            case PageRecording::Kind::Box:
                appendNumber(content, std::min(op.x1, op.x2));
                content += ' ';
                appendNumber(content, std::min(op.y1, op.y2));
                content += ' ';
                appendNumber(content, std::fabs(op.x2 - op.x1));
                content += ' ';
                appendNumber(content, std::fabs(op.y2 - op.y1));
                content += " re f\n";
                break;
        }
    }
    std::uint32_t contents = reserveObject();
    writeStream(contents, content);
    std::uint32_t pageObject = reserveObject();
    beginObject(pageObject);
    write("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + number(sheet.width()) + " " + number(sheet.height()) +
          "] /Resources 3 0 R /Contents " + std::to_string(contents) + " 0 R >>\nendobj\n");
    pageObjects_.push_back(pageObject);
}

void PdfWriter::writeFont(const Font& font, std::size_t index) {
    const PrintFace& face = *font.face;
    std::string name = subsetTag(index) + postScriptName(face.raw);
    std::set<std::uint32_t> glyphs;
    std::string widths, cmap;
    int mappings = 0;
    for (int c = 0; c < 256; ++c) {
        if (!font.used[static_cast<std::size_t>(c)]) continue;
        std::uint32_t glyph = face.glyph[static_cast<std::size_t>(c)];
        if (!glyphs.insert(glyph).second) continue;
        widths += std::to_string(glyph) + " [" + number(face.advance[static_cast<std::size_t>(c)] / face.pixelSize * 1000) + "] ";
        char byte = static_cast<char>(c);
        cmap += "<";
        appendHex16(cmap, glyph);
        cmap += "> <";
        appendHex16(cmap, fromCp1252(std::string_view(&byte, 1)).at(0).unicode());
        cmap += ">\n";
        ++mappings;
    }
    const QRawFont& raw = face.raw;
    std::string file = subsetTrueType([&](const char* tag) { return tableOf(raw, tag); }, glyphs);
    std::string head = tableOf(raw, "head");
    double perUnit = 1000.0 / std::max(1, static_cast<int>(raw.unitsPerEm()));
    double perPixel = 1000.0 / face.pixelSize;
    bool fixedPitch = face.advance['i'] == face.advance['W'];

    std::uint32_t cid = reserveObject(), descriptor = reserveObject(), fontFile = reserveObject(), toUnicode = reserveObject();
    beginObject(font.object);
    write("<< /Type /Font /Subtype /Type0 /BaseFont /" + name + " /Encoding /Identity-H /DescendantFonts [" +
          std::to_string(cid) + " 0 R] /ToUnicode " + std::to_string(toUnicode) + " 0 R >>\nendobj\n");
    beginObject(cid);
    write("<< /Type /Font /Subtype /CIDFontType2 /BaseFont /" + name +
          " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor " +
          std::to_string(descriptor) + " 0 R /CIDToGIDMap /Identity /DW 0 /W [" + widths + "] >>\nendobj\n");
    beginObject(descriptor);
    int flags = 32 | (fixedPitch ? 1 : 0) | (face.key.italic ? 64 : 0);
    write("<< /Type /FontDescriptor /FontName /" + name + " /Flags " + std::to_string(flags) + " /FontBBox [" +
          number(signed16(head, 36) * perUnit) + " " + number(signed16(head, 38) * perUnit) + " " +
          number(signed16(head, 40) * perUnit) + " " + number(signed16(head, 42) * perUnit) + "] /ItalicAngle " +
          (face.key.italic ? "-12" : "0") + " /Ascent " + number(raw.ascent() * perPixel) + " /Descent " +
          number(-raw.descent() * perPixel) + " /CapHeight " + number(raw.capHeight() * perPixel) +
          " /StemV 80 /FontFile2 " + std::to_string(fontFile) + " 0 R >>\nendobj\n");
    writeStream(fontFile, file, " /Length1 " + std::to_string(file.size()));
    writeStream(toUnicode,
                "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n<0000> <FFFF>\n"
                "endcodespacerange\n" +
                    std::to_string(mappings) + " beginbfchar\n" + cmap +
                    "endbfchar\nendcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n");
}

void PdfWriter::finish() {
    std::string fontList;
    for (std::size_t i = 0; i < fonts_.size(); ++i) {
        writeFont(fonts_[i], i);
        fontList += "/F" + std::to_string(i) + " " + std::to_string(fonts_[i].object) + " 0 R ";
    }
    beginObject(kResources);
    write("<< /Font << " + fontList + ">> /ProcSet [/PDF /Text] >>\nendobj\n");
    std::string kids;
    for (std::uint32_t page : pageObjects_) kids += std::to_string(page) + " 0 R ";
    beginObject(kPageTree);
    write("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pageObjects_.size()) + " >>\nendobj\n");
    beginObject(kCatalog);
    write("<< /Type /Catalog /Pages 2 0 R >>\nendobj\n");
    beginObject(kInfo);
    write("<< /Producer (Halyard) /Creator (Halyard) >>\nendobj\n");

    std::uint64_t xref = written_;
    std::string table = "xref\n0 " + std::to_string(offsets_.size()) + "\n0000000000 65535 f \n";
    for (std::size_t n = 1; n < offsets_.size(); ++n) {
        char entry[32];
        std::snprintf(entry, sizeof entry, "%010llu 00000 n \n", static_cast<unsigned long long>(offsets_[n]));
        table += entry;
    }
    write(table);
    write("trailer\n<< /Size " + std::to_string(offsets_.size()) + " /Root 1 0 R /Info 4 0 R >>\nstartxref\n" +
          std::to_string(xref) + "\n%%EOF\n");
}

}  // namespace hlyd
