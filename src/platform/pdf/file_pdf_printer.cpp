#include "platform/pdf/file_pdf_printer.h"

#include <cmath>

#include "platform/pdf/face_files.h"
#include "platform/pdf/file_face.h"

namespace hlyd {

namespace {

// The papers of the classic printer drivers' codes: millimetres, in which each is exact, and
// whole points, from which the device's pixels are counted.
struct Paper {
    std::int32_t code;
    double width, height;  // mm
    int widthPoints, heightPoints;
};

constexpr Paper kPapers[] = {
        {1, 215.9, 279.4, 612, 792},  {3, 279.4, 431.8, 792, 1224}, {4, 431.8, 279.4, 1224, 792},
        {5, 215.9, 355.6, 612, 1008}, {7, 190.5, 254, 540, 720},    {8, 297, 420, 842, 1191},
        {9, 210, 297, 595, 842},      {11, 148, 210, 420, 595},     {13, 176, 250, 499, 709},
        {20, 104.8, 241.3, 297, 684},
};

// The unprintable strip on every side: a quarter inch, as on the toolkit's PDF printer.
constexpr double kStripMillimetres = 6.35;
constexpr double kStripPoints = 18;

const Paper& paperOf(std::int32_t code) {
    for (const Paper& paper : kPapers)
        if (paper.code == code) return paper;
    return kPapers[0];
}

int pixelsOf(double points, int dotsPerInch) { return static_cast<int>(std::lround(points * dotsPerInch / 72.0)); }

FaceFigures faceFromFile(PrintFace& face) {
    int style = int(face.key.bold) | int(face.key.italic) << 1;
    std::string file = rememberedFaceFile(face.key.family, style);
    if (file.empty()) throw FacesUnanswered{"no file remembered for " + face.key.family};
    std::optional<FaceFigures> figures = readFileFace(face, file);
    if (!figures) throw FacesUnanswered{file + " cannot be read without the font engine"};
    return *figures;
}

}  // namespace

PrintSheet pdfPrinterSheet(std::int32_t paperCode, bool landscape, int dotsPerInch) {
    const Paper& paper = paperOf(paperCode);
    PrintSheet sheet;
    sheet.fullWidth = landscape ? paper.height : paper.width;
    sheet.fullHeight = landscape ? paper.width : paper.height;
    sheet.paintLeft = sheet.paintTop = kStripMillimetres;
    sheet.paintWidth = sheet.fullWidth - kStripMillimetres - kStripMillimetres;
    sheet.paintHeight = sheet.fullHeight - kStripMillimetres - kStripMillimetres;
    int across = pixelsOf(paper.widthPoints, dotsPerInch), down = pixelsOf(paper.heightPoints, dotsPerInch);
    sheet.fullWidthPixels = landscape ? down : across;
    sheet.fullHeightPixels = landscape ? across : down;
    sheet.paintLeftPixels = sheet.paintTopPixels = pixelsOf(kStripPoints, dotsPerInch);
    sheet.landscape = landscape;
    return sheet;
}

FilePdfPrinter::FilePdfPrinter() : PagePrinter(kPdfDotsPerInch, faceFromFile, true) { setDefaultFont(); }

FilePdfPrinter::~FilePdfPrinter() { endOpenJob(); }

PagePrinter::ResolvedFamily FilePdfPrinter::resolveFamily(const std::string& name) {
    std::optional<std::pair<std::string, std::string>> known = rememberedFamily(name);
    if (!known) throw FacesUnanswered{"no family remembered for " + name};
    return {known->first, known->second};
}

// The colours of the system's palette are the toolkit's to tell.
std::uint32_t FilePdfPrinter::rgbOfColour(std::uint32_t colour) {
    if (colour & 0x80000000u) throw FacesUnanswered{"a colour of the system's palette"};
    return 0xFF000000u | (colour & 0xFFu) << 16 | (colour & 0xFF00u) | (colour >> 16 & 0xFFu);
}

// The whole list needs the font database.
std::vector<std::string> FilePdfPrinter::fonts() const { throw FacesUnanswered{"the list of fonts"}; }

std::size_t FilePdfPrinter::fontCount() const {
    std::optional<long long> known = rememberedNumber("printer fonts");
    if (!known) throw FacesUnanswered{"the number of fonts"};
    return static_cast<std::size_t>(*known);
}

PrintSheet FilePdfPrinter::sheet() const { return pdfPrinterSheet(paper_, landscape_, kPdfDotsPerInch); }

// Any paper code: one it does not know makes Letter.
int FilePdfPrinter::setPaper(std::int32_t code) {
    paper_ = paperOf(code).code;
    setPaperCode(code);
    return 0;
}

}  // namespace hlyd
