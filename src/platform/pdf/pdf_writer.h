#pragma once
// A PDF file written page by page as the pages are finished: each page's drawing goes out
// compressed at once, and what the whole file needs (the fonts, cut to the glyphs used, and the
// page tree) follows at the end. Text stays text: every font carries the map from its glyphs back
// to characters, so a reader can select and extract the listing.
//
// The general PDF painter of the toolkit writes every glyph as a positioned call of its own; a
// listing is nearly all text, and writing runs of glyphs that the font places by its own widths
// makes the file several times faster to write and smaller.
#include <bitset>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/pdf/byte_sink.h"
#include "platform/pdf/page_recording.h"
#include "platform/pdf/pdf_geometry.h"
#include "platform/pdf/pdf_page_content.h"
#include "platform/pdf/pdf_page_packer.h"
#include "platform/pdf/print_faces.h"

struct libdeflate_compressor;

namespace hlyd {

// What a page holds for a reader to find their way besides its drawing: the number a viewer shows
// for it, the places named on it and its links, in device pixels like the drawing.
struct PageMarks {
    struct Destination {
        std::string name, title;  // the title in Windows-1252; empty for a place outside the outline
        int level;
        double y;
    };
    struct Link {
        double x1, y1, x2, y2;
        std::string name;
    };
    bool labelled = false;
    std::int32_t number = 0;
    bool roman = false;
    std::vector<Destination> destinations;
    std::vector<Link> links;
};

class PdfWriter {
public:
    explicit PdfWriter(ByteSink& out);
    // One page: the recording in device pixels at `dotsPerInch`, its origin `origin` points from the
    // sheet's top left, on a sheet of `sheet` points. The recording is taken over: `page` comes back
    // empty, keeping the room of a page written before.
    void addPage(PageRecording& page, const PrintFaces& faces, int dotsPerInch, PdfSize sheet, PdfPoint origin,
                 const PageMarks& marks = {});
    // The fonts, the page tree and the cross-reference table: the file is complete after this.
    void finish();
    int pages() const { return static_cast<int>(pages_.size()); }

private:
    // How a font's glyphs reach the file: its TrueType program cut to the glyphs used, its CFF
    // program whole, or, for a face with neither (Type 1), each glyph's outline drawn by the file.
    enum class Outlines { TrueType, Cff, Drawn };
    struct Font {
        const PrintFace* face;  // any face of the font: the glyphs and widths are the same in all
        std::uint32_t object;
        std::bitset<256> used;  // the Windows-1252 characters drawn in it
        Outlines outlines;
    };

    // A finished page as the packing thread turns it into its content: a copy of its recording,
    // and the faces and fonts it draws in as they stood then, for the layout grows both meanwhile.
    struct PageToWrite {
        PageRecording page;
        std::vector<const PrintFace*> faces;  // by face index
        std::vector<int> fontOfFace;          // by face index
        double pointsPerPixel = 0;
        PdfPoint corner;
        bool empty() const { return page.empty(); }
        void clear() {
            page.clear();
            faces.clear();
            fontOfFace.clear();
        }
    };

    std::uint32_t reserveObject();
    void beginObject(std::uint32_t number);
    void write(std::string_view data);
    void writeStream(std::uint32_t number, const std::string& data, const std::string& dictionary = {});
    // On the packing thread: a page's content, its place noted apart from offsets_, which the
    // pages still being laid out grow meanwhile.
    void writePageStream(std::uint32_t number, const PageToWrite& page);
    // Fills nextPage_ with the page as the packing thread is to write it.
    void handOver(PageRecording& page, const PrintFaces& faces, double scale, PdfPoint corner);
    void writePacked(const std::string& dictionary);
    std::size_t fontOf(const PrintFace& face);
    void compress(const std::string& data);  // into packed_
    // In pdf_fonts.cpp.
    static Outlines outlinesOf(const FaceProgram& program);
    void writeFont(const Font& font);
    void writeCidFont(const Font& font);
    void writeCodeMap(std::uint32_t number, const std::string& name,
                      const std::vector<std::pair<int, std::uint32_t>>& codes);
    void writeDrawnFont(const Font& font);
    void writeToUnicode(std::uint32_t number, const std::string& codeSpace, const std::string& mappings, int count);

    ByteSink& out_;
    std::uint64_t written_ = 0;
    std::vector<std::uint64_t> offsets_{0};  // by object number
    // A page's object is written at the end, when every place its links lead to is known.
    struct Page {
        std::uint32_t object, contents;
        PdfSize sheet;
        std::vector<PageMarks::Link> links;  // in points
    };
    struct Place {
        std::size_t page;
        double y;  // points from the sheet's foot
    };
    struct OutlineEntry {
        std::string title;
        int level;
        Place place;
    };
    struct LabelRange {
        std::size_t firstPage;
        std::int32_t number;
        bool roman;
    };
    void notePlaces(const PageMarks& marks, std::size_t page, double scale, PdfSize sheet, PdfPoint origin);
    void noteLabel(const PageMarks& marks, std::size_t page);
    std::string destinationOf(const Place& place) const;
    void writePage(const Page& page);
    // The outline's root object, or 0 when there is none. In pdf_navigation.cpp, as the two below.
    std::uint32_t writeOutline();
    std::string pageLabels() const;

    std::vector<Page> pages_;
    std::unordered_map<std::string, Place> places_;  // the first place of each name
    std::vector<OutlineEntry> outline_;
    std::vector<LabelRange> labels_;
    std::vector<Font> fonts_;
    std::vector<int> fontOfFace_;  // by face index; -1 until the face is first drawn
    // Of the packing thread: the page being written, and the characters drawn so far in each
    // font (by font number), which reach fonts_ once the last page is written.
    PdfPageContent pageContent_;
    const PageToWrite* writing_ = nullptr;
    std::vector<std::bitset<256>> drawn_;
    std::string content_, packed_;  // of the page being written, kept to spare a page its allocations
    std::size_t packedLength_ = 0;  // of the deflated bytes at the start of packed_
    PageToWrite nextPage_;          // of the layout: the page being handed over
    // Made once for the file: a compressor's tables are dearer to set up than a small page to pack.
    struct FreeCompressor {
        void operator()(libdeflate_compressor* compressor) const;
    };
    std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor_;
    std::vector<std::pair<std::uint32_t, std::uint64_t>> pageOffsets_;  // written by the packer
    // Last, so that its thread stops before anything it writes with goes.
    PdfPagePacker<PageToWrite> packer_;
};

}  // namespace hlyd
