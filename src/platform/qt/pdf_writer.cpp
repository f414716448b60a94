#include "platform/qt/pdf_writer.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>

#include "platform/qt/pdf_syntax.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

constexpr std::uint32_t kCatalog = 1, kPageTree = 2, kResources = 3, kInfo = 4;

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

std::string compressed(const std::string& data) {
    // Level 1: a listing's file comes out a third larger than at the default level, still smaller
    // than its source, and is written 1.6 times as fast; the time is what a print waits for.
    QByteArray packed = qCompress(reinterpret_cast<const uchar*>(data.data()), static_cast<qsizetype>(data.size()), 1);
    std::string stream = packed.toStdString();
    stream.erase(0, std::min<std::size_t>(4, stream.size()));  // Qt's own length before the zlib stream
    return stream;
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
    fonts_.push_back({&face, reserveObject(), {}, outlinesOf(face.raw)});
    return static_cast<std::size_t>(known = static_cast<int>(fonts_.size() - 1));
}

void PdfWriter::appendText(std::string& content, const PageRecording& page, const PageRecording::Op& op,
                           const PrintFace& face) {
    std::size_t font = fontOf(face);
    std::string_view text = page.textOf(op);
    double baseline = op.y1 + face.ascent;
    // A reader copying or reading the page aloud skips an artifact.
    if (op.artifact) content += "/Artifact BMC ";
    // Text that stands for bytes without a glyph gives those bytes back, as UTF-16BE.
    std::string_view actual = page.actualOf(op);
    if (!actual.empty()) {
        content += "/Span <</ActualText <FEFF";
        for (unsigned char c : actual) appendHex16(content, cp1252CodePoint(c));
        content += ">>> BDC ";
    }
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
    bool drawn = fonts_[font].outlines == Outlines::Drawn;  // a simple font: one byte a character
    for (unsigned char c : text) {
        if (face.glyph[c] != 0) {
            used.set(c);
            if (drawn) appendHex8(content, c);
            else appendHex16(content, face.glyph[c]);
        } else if (face.advance[c] != 0) {  // no glyph, yet room as measured
            content += "> ";
            appendNumber(content, -face.advance[c] / face.pixelSize * 1000);
            content += " <";
        }
    }
    content += ">] TJ ET\n";
    if (op.artifact || !actual.empty()) content += "EMC\n";
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
                        QPointF origin, const PageMarks& marks) {
    // Device pixels, y downwards from the printable area's corner, as the page was recorded.
    double scale = 72.0 / dotsPerInch;
    std::string content = pdfNumber(scale) + " 0 0 " + pdfNumber(-scale) + " " + pdfNumber(origin.x()) + " " +
                          pdfNumber(sheet.height() - origin.y()) + " cm 2 J\n";
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
    std::size_t index = pages_.size();
    pages_.push_back({reserveObject(), contents, sheet, {}});
    for (const PageMarks::Link& link : marks.links)
        pages_.back().links.push_back({origin.x() + link.x1 * scale, sheet.height() - origin.y() - link.y2 * scale,
                                       origin.x() + link.x2 * scale, sheet.height() - origin.y() - link.y1 * scale,
                                       link.name});
    notePlaces(marks, index, scale, sheet, origin);
    noteLabel(marks, index);
}

void PdfWriter::writePage(const Page& page) {
    std::string annotations;
    for (const PageMarks::Link& link : page.links) {
        auto place = places_.find(link.name);
        if (place == places_.end()) continue;
        std::uint32_t annotation = reserveObject();
        beginObject(annotation);
        write("<< /Type /Annot /Subtype /Link /Rect [" + pdfNumber(link.x1) + " " + pdfNumber(link.y1) + " " +
              pdfNumber(link.x2) + " " + pdfNumber(link.y2) + "] /Border [0 0 0] /Dest " +
              destinationOf(place->second) + " >>\nendobj\n");
        annotations += std::to_string(annotation) + " 0 R ";
    }
    beginObject(page.object);
    write("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + pdfNumber(page.sheet.width()) + " " +
          pdfNumber(page.sheet.height()) + "] /Resources 3 0 R /Contents " + std::to_string(page.contents) + " 0 R" +
          (annotations.empty() ? std::string() : " /Annots [" + annotations + "]") + " >>\nendobj\n");
}

void PdfWriter::finish() {
    std::string fontList;
    for (std::size_t i = 0; i < fonts_.size(); ++i) {
        writeFont(fonts_[i]);
        fontList += "/F" + std::to_string(i) + " " + std::to_string(fonts_[i].object) + " 0 R ";
    }
    beginObject(kResources);
    write("<< /Font << " + fontList + ">> /ProcSet [/PDF /Text] >>\nendobj\n");
    std::string kids;
    for (const Page& page : pages_) {
        writePage(page);
        kids += std::to_string(page.object) + " 0 R ";
    }
    beginObject(kPageTree);
    write("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pages_.size()) + " >>\nendobj\n");
    std::uint32_t outline = writeOutline();
    beginObject(kCatalog);
    write("<< /Type /Catalog /Pages 2 0 R" + pageLabels() +
          (outline != 0 ? " /Outlines " + std::to_string(outline) + " 0 R /PageMode /UseOutlines" : std::string()) +
          " >>\nendobj\n");
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
