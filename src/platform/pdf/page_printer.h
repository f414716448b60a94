#pragma once
// A printer of this desktop behind the Printer port, as far as it needs no toolkit: the fonts and
// measures, the drawing, the pages and the job of the built-in "PDF" printer, which writes a job
// to one PDF file, and of a system printer, whose device a subclass drives. What the printer
// draws with and on is its subclass's too: the faces, the family each font name stands for, the
// colours of the system's palette and the sheet.
//
// Lengths are twips; the device's pixels are counted at its own resolution (the PDF printer's is
// 720 dots per inch, two twips to a pixel). The page being drawn is recorded and reaches the device
// when it is finished, by newPage or endDoc; killDoc drops it. On a system printer each document is
// one print job; the PDF printer puts the documents of a job one after the other in its file, which
// replaces the target only when the job ends well.
//
// The PDF printer writes its file itself (pdf_writer.h). Its page has an unprintable strip of a
// quarter inch on every side: the page geometry of a print has offsets to work with, and a quarter
// inch is what common office printers leave, so that a listing laid out for the PDF prints the
// same on paper.
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/pdf/job_file.h"
#include "platform/pdf/page_recording.h"
#include "platform/pdf/pdf_writer.h"
#include "platform/pdf/print_faces.h"
#include "platform/printer.h"

namespace hlyd {

// The sheet as a printer's page layout gives it: in millimetres, in which every paper is exact,
// and in the device's pixels.
struct PrintSheet {
    double fullWidth = 0, fullHeight = 0;                                 // mm
    double paintLeft = 0, paintTop = 0, paintWidth = 0, paintHeight = 0;  // mm
    int fullWidthPixels = 0, fullHeightPixels = 0, paintLeftPixels = 0, paintTopPixels = 0;
    bool landscape = false;
};

class PagePrinter : public Printer {
public:
    static constexpr const char* kPdfPrinterName = hlyd::kPdfPrinterName;
    static constexpr int kPdfDotsPerInch = 720;

    // Ends a job still open; a subclass that drives a device ends it in its own destructor first.
    ~PagePrinter() override;

    std::string fontName() const override { return fontNameRead_; }
    void setFontName(const std::string& name) override;
    double fontSize() const override { return key_.points; }
    void setFontSize(double points) override;
    bool fontBold() const override { return key_.bold; }
    void setFontBold(bool on) override { setStyle(key_.bold, on); }
    bool fontItalic() const override { return key_.italic; }
    void setFontItalic(bool on) override { setStyle(key_.italic, on); }
    bool fontUnderline() const override { return key_.underline; }
    void setFontUnderline(bool on) override { setStyle(key_.underline, on); }
    bool fontStrikethrough() const override { return key_.strikeOut; }
    void setFontStrikethrough(bool on) override { setStyle(key_.strikeOut, on); }
    std::uint32_t foreColor() const override { return foreColor_; }
    void setForeColor(std::uint32_t colour) override { foreColor_ = colour; }
    void setTextStyle(const TextStyle& style) override;

    float textWidth(const std::string& text) override;
    float textHeight(const std::string& text) override;
    float currentX() const override { return x_; }
    float currentY() const override { return y_; }
    void setCurrentX(float x) override { x_ = x; }
    void setCurrentY(float y) override { y_ = y; }
    void print(const std::string& text) override;
    void printMark(const std::string& text) override;
    void printStandingFor(const std::string& shown, const std::string& actual) override;
    void line(float x1, float y1, float x2, float y2, std::uint32_t colour) override;
    void filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) override;
    int drawWidth() const override { return drawWidth_; }
    void setDrawWidth(int pixels) override { drawWidth_ = pixels < 1 ? 1 : pixels; }
    // Clears the page being drawn.
    void cls() override;
    float width() const override;
    float height() const override;
    float scaleWidth() const override;
    int twipsPerPixelX() const override;
    int twipsPerPixelY() const override { return twipsPerPixelX(); }

    PrinterCaps caps() const override;
    float scaleLeft() const override { return 0; }
    float scaleTop() const override { return 0; }
    float scaleHeight() const override;
    void newPage() override;
    void endDoc() override;
    void killDoc() override;
    std::int32_t page() const override { return docOpen_ ? pagesFinishedInDoc_ + 1 : 1; }
    // Only the PDF printer keeps these: a page on paper has nowhere to put them.
    void setPageLabel(std::int32_t printedNumber, int kind) override;
    void nameDestination(const std::string& name, float y, const std::string& title, int level) override;
    void linkTo(float left, float top, float right, float bottom, const std::string& name) override;
    std::int32_t jobProperty(JobProperty which) const override;
    int setJobProperty(JobProperty which, std::int32_t value) override;

    bool beginJob(const std::string& outputPath) override;
    bool endJob(bool keep) override;
    std::string jobError() const override { return jobError_; }

    // Pages that reached the device in this job, and the most text one page held in memory.
    std::int32_t pagesDelivered() const override { return pagesDelivered_; }
    std::size_t largestPageText() const { return largestPageText_; }

protected:
    // The PDF printer when `pdf`, else a system printer.
    PagePrinter(int dotsPerInch, PrintFaces::FaceMaker faces, bool pdf);

    struct ResolvedFamily {
        std::string family;    // what the faces are looked up by
        std::string readBack;  // what the font name reads
    };
    // The family a font name stands for.
    virtual ResolvedFamily resolveFamily(const std::string& name) = 0;
    // A colour as the settings hold it (0x00BBGGRR, or 0x800000nn of the system's palette), as
    // 0xAARRGGBB.
    virtual std::uint32_t rgbOfColour(std::uint32_t colour) = 0;
    // The sheet as the job properties set it now.
    virtual PrintSheet sheet() const = 0;
    virtual void setLandscape(bool landscape) = 0;
    // 0, or the error of a paper code the printer refuses.
    virtual int setPaper(std::int32_t code) = 0;
    virtual bool offersDuplex(std::int32_t /*code*/) const { return true; }
    // A system printer's device: the finished page to it (false when it failed), and the end of a
    // document or job.
    virtual bool deliverToSystem() { return false; }
    virtual void closeSystemDevice(bool /*abort*/) {}
    // A page begins: what the sheet is now holds for the whole page.
    virtual void pageBegins() {}

    // Ends the job still open and drops the document: a subclass's destructor, while its device is there.
    void endOpenJob();
    const PageRecording& recording() const { return page_; }
    const PrintFaces& printFaces() const { return faces_; }
    std::int32_t copies() const { return copies_; }
    std::int32_t duplex() const { return duplex_; }
    void setPaperCode(std::int32_t code) { paperCode_ = code; }
    void setDeviceDefaults(std::int32_t copies, std::int32_t duplex) { copies_ = copies, duplex_ = duplex; }
    // The font a printer starts with; a subclass's constructor sets it, once it can resolve names.
    void setDefaultFont();
    std::string jobError_;

private:
    void printText(const std::string& text, bool artifact, std::string_view actual = {});
    bool isPdf() const { return pdfPrinter_; }
    int dotsPerInch() const { return faces_.dotsPerInch(); }
    double toPixels(float twips) const { return twips * static_cast<float>(dotsPerInch()) / 1440.0; }
    const PrintFace& face();
    void setStyle(bool& flag, bool on);
    int setDuplex(std::int32_t value);
    std::uint32_t rgbOf(std::uint32_t colour);
    void ensurePage();
    void finishPage();
    bool deliverToPdf();
    struct TwipsRect {
        double x, y, width, height;
    };
    TwipsRect paintRectTwips() const;

    bool pdfPrinter_;
    std::unique_ptr<JobFile> jobFile_;
    std::unique_ptr<PdfWriter> pdf_;
    PrintSheet pageSheet_;  // of the page being drawn: as the sheet was when it began
    std::int32_t copies_ = 1, duplex_ = 1, quality_ = -4, paperCode_ = 1;

    PrintFaces faces_;
    FaceKey key_;
    const PrintFace* face_ = nullptr;  // of key_; found again after a change
    std::string fontNameRead_;
    std::string fontNameAsked_;  // the last name set: the key's family is its
    struct ResolvedName {
        std::string family;
        std::uint32_t familyNumber;  // of the family, among those this printer met
        std::string readBack;
    };
    std::unordered_map<std::string, ResolvedName> resolvedNames_;
    std::vector<std::string> families_;
    std::uint32_t familyNumber_ = UINT32_MAX;  // of key_.family; none yet
    // The faces met lately, found by whole numbers: a listing goes back and forth between a few
    // faces from token to token, and the faces' own table hashes a family name.
    struct RecentFace {
        std::uint32_t family;
        double points;
        unsigned style;
        const PrintFace* face;
    };
    static constexpr std::size_t kRecentFaces = 16;
    std::vector<RecentFace> recentFaces_;
    std::size_t nextRecent_ = 0;  // the entry a new face replaces once all are taken
    std::uint32_t foreColor_ = 0;
    // The last two colours looked up: a listing goes back and forth between two nearly every token.
    std::array<std::uint32_t, 2> cachedColourKey_{0xFFFFFFFFu, 0xFFFFFFFFu};
    std::array<std::uint32_t, 2> cachedColour_{};
    float x_ = 0, y_ = 0;
    int drawWidth_ = 1;

    PageRecording page_;
    PageMarks marks_;  // of the page being drawn
    bool docOpen_ = false, pageOpen_ = false;
    std::int32_t pagesFinishedInDoc_ = 0, pagesDelivered_ = 0;
    std::size_t largestPageText_ = 0;
    bool jobOpen_ = false;
    std::string jobPath_;
};

}  // namespace hlyd
