#pragma once
// A printer of this desktop behind the Printer port: one of the system's printers (through Qt's
// print support) or the built-in "PDF" printer, which writes a job to one PDF file.
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
#include <QPageLayout>
#include <QPainter>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/printer.h"
#include "platform/pdf/job_file.h"
#include "platform/pdf/page_recording.h"
#include "platform/pdf/pdf_writer.h"
#include "platform/pdf/print_faces.h"
#include "platform/qt/system_print_device.h"

class QPrinter;

namespace hlyd {

class QtPrinter : public Printer {
public:
    static constexpr const char* kPdfPrinterName = hlyd::kPdfPrinterName;
    static constexpr int kPdfDotsPerInch = 720;

    // The built-in PDF printer.
    QtPrinter();
    // A system printer: a QPrinter set up for it. Defined with the QPrinter device, so that only
    // what links Qt's print support can make one.
    explicit QtPrinter(std::unique_ptr<QPrinter> device);
    explicit QtPrinter(std::unique_ptr<SystemPrintDevice> device);
    ~QtPrinter() override;

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
    std::vector<std::string> fonts() const override;
    std::size_t fontCount() const override;

    std::string deviceName() const override;
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

private:
    void printText(const std::string& text, bool artifact, std::string_view actual = {});
    bool isPdf() const { return !system_; }
    int dotsPerInch() const { return faces_.dotsPerInch(); }
    double toPixels(float twips) const { return twips * dotsPerInch() / 1440.0; }
    const PrintFace& face();
    void setStyle(bool& flag, bool on);
    int setDuplex(std::int32_t value);
    int setPaper(std::int32_t code);
    QRgb rgbOf(std::uint32_t colour);
    void ensurePage();
    void finishPage();
    bool deliverToPdf();
    bool deliverToSystem();
    void closeSystemDevice(bool abort);
    QRectF paintRectTwips() const;

    std::unique_ptr<SystemPrintDevice> system_;
    std::unique_ptr<JobFile> jobFile_;
    std::unique_ptr<PdfWriter> pdf_;
    QPainter painter_;
    QPageLayout layout_;      // as the job properties set it
    QPageLayout pageLayout_;  // of the page being drawn: as layout_ was when it began
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
    std::array<QRgb, 2> cachedColour_{};
    float x_ = 0, y_ = 0;
    int drawWidth_ = 1;

    PageRecording page_;
    PageMarks marks_;  // of the page being drawn
    bool docOpen_ = false, pageOpen_ = false;
    std::int32_t pagesFinishedInDoc_ = 0, pagesDelivered_ = 0;
    std::size_t largestPageText_ = 0;
    bool jobOpen_ = false;
    std::string jobPath_;
    std::string jobError_;
};

}  // namespace hlyd
