#include "platform/pdf/pdf_writer.h"

#include <algorithm>
#include <cmath>
#include <libdeflate.h>

#include "platform/pdf/pdf_syntax.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

constexpr std::uint32_t kCatalog = 1, kPageTree = 2, kResources = 3, kInfo = 4;

// The level chosen by measurement on listings: see compress().
constexpr int kDeflateLevel = 1;

}  // namespace

PdfWriter::PdfWriter(ByteSink& out)
    : out_(out),
      pageContent_([this](const PrintFace& face) {
          auto number = static_cast<std::size_t>(writing_->fontOfFace[face.index]);
          if (drawn_.size() <= number) drawn_.resize(number + 1);
          return PdfPageContent::FontUse{number, &drawn_[number]};
      }),
      packer_([this](std::uint32_t number, PageToWrite& page) { writePageStream(number, page); }) {
    // Made here rather than on the packing thread, whose allocations would take a heap of their own.
    compressor_.reset(libdeflate_alloc_compressor(kDeflateLevel));
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
    out_.write(data);
    written_ += data.size();
}

void PdfWriter::FreeCompressor::operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
}

// Deflate at level 1, by a whole-buffer deflater: a page is packed in one call. Measured on the
// pages of a 2 MB module, it takes half the time zlib took at its level 1, for a file 6 per cent
// smaller; its levels 2, 3 and 6 save 2, 4 and 8 per cent of the file for a third, three fifths
// and two thirds more time. The time is what a print waits for.
void PdfWriter::compress(const std::string& data) {
    if (!compressor_) compressor_.reset(libdeflate_alloc_compressor(kDeflateLevel));
    // The room only grows: made again for every page, it was filled with zeros every time.
    std::size_t bound = libdeflate_zlib_compress_bound(compressor_.get(), data.size());
    if (packed_.size() < bound) packed_.resize(bound);
    packedLength_ = libdeflate_zlib_compress(compressor_.get(), data.data(), data.size(), packed_.data(), bound);
}

void PdfWriter::writeStream(std::uint32_t number, const std::string& data, const std::string& dictionary) {
    compress(data);
    beginObject(number);
    writePacked(dictionary);
}

void PdfWriter::writePageStream(std::uint32_t number, const PageToWrite& page) {
    writing_ = &page;
    content_.clear();
    pageContent_.write(content_, page.page, page.faces, page.pointsPerPixel, page.corner);
    writing_ = nullptr;
    compress(content_);
    pageOffsets_.emplace_back(number, written_);
    write(std::to_string(number) + " 0 obj\n");
    writePacked({});
}

void PdfWriter::writePacked(const std::string& dictionary) {
    write("<< /Length " + std::to_string(packedLength_) + " /Filter /FlateDecode" + dictionary + " >>\nstream\n");
    write(std::string_view(packed_).substr(0, packedLength_));
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
    fonts_.push_back({&face, reserveObject(), {}, outlinesOf(*face.program)});
    return static_cast<std::size_t>(known = static_cast<int>(fonts_.size() - 1));
}

// The fonts are numbered, and their objects reserved, in the order the pages first draw in them,
// here rather than on the packing thread, so that the file's object numbers stay put.
void PdfWriter::handOver(PageRecording& page, const PrintFaces& faces, double scale, PdfPoint corner) {
    std::vector<const PrintFace*>& known = nextPage_.faces;  // empty for each page; a face is looked up once
    for (const PageRecording::Op& op : page.ops()) {
        if (op.kind != PageRecording::Kind::Text || (op.face < known.size() && known[op.face])) continue;
        const PrintFace& face = faces.byIndex(op.face);
        fontOf(face);
        if (nextPage_.faces.size() <= op.face) nextPage_.faces.resize(op.face + 1u, nullptr);
        nextPage_.faces[op.face] = &face;
    }
    std::swap(nextPage_.page, page);  // the caller gets the emptied room of a page written before
    nextPage_.fontOfFace = fontOfFace_;
    nextPage_.pointsPerPixel = scale;
    nextPage_.corner = corner;
}

void PdfWriter::addPage(PageRecording& page, const PrintFaces& faces, int dotsPerInch, PdfSize sheet, PdfPoint origin,
                        const PageMarks& marks) {
    double scale = 72.0 / dotsPerInch;
    handOver(page, faces, scale, PdfPoint{origin.x, sheet.height - origin.y});
    std::uint32_t contents = reserveObject();
    packer_.submit(contents, nextPage_);
    std::size_t index = pages_.size();
    pages_.push_back({reserveObject(), contents, sheet, {}});
    for (const PageMarks::Link& link : marks.links)
        pages_.back().links.push_back({origin.x + link.x1 * scale, sheet.height - origin.y - link.y2 * scale,
                                       origin.x + link.x2 * scale, sheet.height - origin.y - link.y1 * scale,
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
    write("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + pdfNumber(page.sheet.width) + " " +
          pdfNumber(page.sheet.height) + "] /Resources 3 0 R /Contents " + std::to_string(page.contents) + " 0 R" +
          (annotations.empty() ? std::string() : " /Annots [" + annotations + "]") + " >>\nendobj\n");
}

void PdfWriter::finish() {
    packer_.drain();
    for (auto [number, offset] : pageOffsets_) offsets_[number] = offset;
    pageOffsets_.clear();
    for (std::size_t i = 0; i < drawn_.size() && i < fonts_.size(); ++i) fonts_[i].used |= drawn_[i];
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
