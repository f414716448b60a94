#include "platform/pdf/page_printer.h"

#include <algorithm>
#include <cmath>

#include "platform/surface.h"  // measuredLines

namespace hlyd {

namespace {

// Millimetres, in which every paper is exact (A4 is no whole number of points).
constexpr double kTwipsPerMillimetre = 1440 / 25.4;
const char* const kDefaultFont = "Courier New";
constexpr double kDefaultSize = 10;

}  // namespace

PagePrinter::PagePrinter(int dotsPerInch, PrintFaces::FaceMaker faces, bool pdf)
    : pdfPrinter_(pdf), faces_(dotsPerInch, std::move(faces)) {
    key_.points = kDefaultSize;
}

PagePrinter::~PagePrinter() { endOpenJob(); }

void PagePrinter::setDefaultFont() { setFontName(kDefaultFont); }

void PagePrinter::endOpenJob() {
    if (jobOpen_) endJob(false);
    killDoc();
}

// ---- fonts and measures ----

// Printing switches between a few names for nearly every token; each is resolved once.
void PagePrinter::setFontName(const std::string& name) {
    fontNameAsked_ = name;
    auto known = resolvedNames_.find(name);
    if (known == resolvedNames_.end()) {
        ResolvedFamily resolved = resolveFamily(name);
        auto family = std::find(families_.begin(), families_.end(), resolved.family);
        if (family == families_.end()) family = families_.insert(family, resolved.family);
        auto number = static_cast<std::uint32_t>(family - families_.begin());
        known = resolvedNames_.emplace(name, ResolvedName{resolved.family, number, resolved.readBack}).first;
    }
    fontNameRead_ = known->second.readBack;
    if (familyNumber_ == known->second.familyNumber) return;
    key_.family = known->second.family;
    familyNumber_ = known->second.familyNumber;
    face_ = nullptr;
}

// As the properties one by one would set it; a name set again before is not looked up again.
void PagePrinter::setTextStyle(const TextStyle& style) {
    foreColor_ = style.colour;
    if (style.fontName != fontNameAsked_ || fontNameAsked_.empty()) setFontName(std::string(style.fontName));
    setFontSize(style.points);
    setStyle(key_.bold, style.bold);
    setStyle(key_.italic, style.italic);
    setStyle(key_.strikeOut, style.strikethrough);
    setStyle(key_.underline, style.underline);
}

void PagePrinter::setFontSize(double points) {
    if (points <= 0 || points == key_.points) return;
    key_.points = points;
    face_ = nullptr;
}

void PagePrinter::setStyle(bool& flag, bool on) {
    if (flag == on) return;
    flag = on;
    face_ = nullptr;
}

const PrintFace& PagePrinter::face() {
    if (face_) return *face_;
    unsigned style = unsigned(key_.bold) | unsigned(key_.italic) << 1 | unsigned(key_.underline) << 2 |
                     unsigned(key_.strikeOut) << 3;
    for (const RecentFace& recent : recentFaces_)
        if (recent.family == familyNumber_ && recent.points == key_.points && recent.style == style)
            return *(face_ = recent.face);
    face_ = &faces_.face(key_);
    RecentFace made{familyNumber_, key_.points, style, face_};
    if (recentFaces_.size() < kRecentFaces) {
        recentFaces_.push_back(made);
    } else {
        recentFaces_[nextRecent_] = made;
        nextRecent_ = (nextRecent_ + 1) % kRecentFaces;
    }
    return *face_;
}

std::uint32_t PagePrinter::rgbOf(std::uint32_t colour) {
    if (colour == cachedColourKey_[0]) return cachedColour_[0];
    // The colour looked up last goes first; the one before it second.
    std::swap(cachedColourKey_[0], cachedColourKey_[1]);
    std::swap(cachedColour_[0], cachedColour_[1]);
    if (colour != cachedColourKey_[0]) {
        cachedColourKey_[0] = colour;
        cachedColour_[0] = rgbOfColour(colour);
    }
    return cachedColour_[0];
}

float PagePrinter::textWidth(const std::string& text) {
    return static_cast<float>(face().width(text) * 1440.0 / dotsPerInch());
}

float PagePrinter::textHeight(const std::string& text) {
    return static_cast<float>(measuredLines(text) * face().lineSpacing * 1440.0 / dotsPerInch());
}

// ---- drawing ----

void PagePrinter::print(const std::string& text) { printText(text, false); }

void PagePrinter::printMark(const std::string& text) { printText(text, true); }

void PagePrinter::printStandingFor(const std::string& shown, const std::string& actual) {
    printText(shown, false, actual);
}

void PagePrinter::printText(const std::string& text, bool artifact, std::string_view actual) {
    ensurePage();
    const PrintFace& f = face();
    double width = f.width(text);
    if (!text.empty())
        page_.text(toPixels(x_), toPixels(y_), f.index, rgbOf(foreColor_), text, width, artifact, actual);
    x_ += static_cast<float>(width * 1440.0 / dotsPerInch());
}

void PagePrinter::line(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    ensurePage();
    page_.line(toPixels(x1), toPixels(y1), toPixels(x2), toPixels(y2), rgbOf(colour), drawWidth_);
    x_ = x2;
    y_ = y2;
}

void PagePrinter::filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    ensurePage();
    page_.box(toPixels(x1), toPixels(y1), toPixels(x2), toPixels(y2), rgbOf(colour));
    x_ = x2;
    y_ = y2;
}

void PagePrinter::setPageLabel(std::int32_t printedNumber, int kind) {
    if (!isPdf()) return;
    constexpr int kProcedureContents = 3;  // counted in Roman numerals of their own
    marks_.labelled = true;
    marks_.number = printedNumber;
    marks_.roman = kind == kProcedureContents;
}

void PagePrinter::nameDestination(const std::string& name, float y, const std::string& title, int level) {
    if (!isPdf()) return;
    ensurePage();
    marks_.destinations.push_back({name, title, level, toPixels(y)});
}

void PagePrinter::linkTo(float left, float top, float right, float bottom, const std::string& name) {
    if (!isPdf()) return;
    ensurePage();
    marks_.links.push_back({toPixels(std::min(left, right)), toPixels(std::min(top, bottom)),
                            toPixels(std::max(left, right)), toPixels(std::max(top, bottom)), name});
}

void PagePrinter::cls() {
    page_.clear();
    x_ = y_ = 0;
}

// ---- the page and the device ----

float PagePrinter::width() const { return static_cast<float>(std::round(sheet().fullWidth * kTwipsPerMillimetre)); }
float PagePrinter::height() const { return static_cast<float>(std::round(sheet().fullHeight * kTwipsPerMillimetre)); }
float PagePrinter::scaleWidth() const { return static_cast<float>(paintRectTwips().width); }
float PagePrinter::scaleHeight() const { return static_cast<float>(paintRectTwips().height); }

PagePrinter::TwipsRect PagePrinter::paintRectTwips() const {
    PrintSheet now = sheet();
    return {std::round(now.paintLeft * kTwipsPerMillimetre), std::round(now.paintTop * kTwipsPerMillimetre),
            std::round(now.paintWidth * kTwipsPerMillimetre), std::round(now.paintHeight * kTwipsPerMillimetre)};
}

int PagePrinter::twipsPerPixelX() const { return std::max(1, static_cast<int>(std::lround(1440.0 / dotsPerInch()))); }

PrinterCaps PagePrinter::caps() const {
    PrintSheet now = sheet();
    return {now.fullWidthPixels, now.fullHeightPixels, now.paintLeftPixels,
            now.paintTopPixels,  dotsPerInch(),        dotsPerInch()};
}

void PagePrinter::ensurePage() {
    if (!docOpen_) {
        docOpen_ = true;
        pagesFinishedInDoc_ = 0;
    }
    if (!pageOpen_) {
        pageSheet_ = sheet();  // a change of paper or orientation applies from the next page
        pageBegins();
    }
    pageOpen_ = true;
}

// The PDF's file opens with the job, its first page comes with the first page finished.
bool PagePrinter::deliverToPdf() {
    if (!jobFile_) return false;
    if (!pdf_) pdf_ = std::make_unique<PdfWriter>(*jobFile_);
    constexpr double kPointsPerMillimetre = 72 / 25.4;
    PdfSize sheet{pageSheet_.fullWidth * kPointsPerMillimetre, pageSheet_.fullHeight * kPointsPerMillimetre};
    PdfPoint origin{pageSheet_.paintLeft * kPointsPerMillimetre, pageSheet_.paintTop * kPointsPerMillimetre};
    pdf_->addPage(page_, faces_, dotsPerInch(), sheet, origin, marks_);
    return true;
}

void PagePrinter::finishPage() {
    // Before delivery: the PDF printer hands the recording over and gets an empty one back.
    largestPageText_ = std::max(largestPageText_, page_.textBytes());
    if (isPdf() ? deliverToPdf() : deliverToSystem()) ++pagesDelivered_;
    page_.clear();
    marks_ = {};
    pageOpen_ = false;
    ++pagesFinishedInDoc_;
    x_ = y_ = 0;
}

void PagePrinter::newPage() {
    ensurePage();
    finishPage();
}

void PagePrinter::endDoc() {
    if (!docOpen_) return;
    if (pageOpen_) finishPage();
    if (!isPdf()) closeSystemDevice(false);
    docOpen_ = false;
    pagesFinishedInDoc_ = 0;
    x_ = y_ = 0;
}

void PagePrinter::killDoc() {
    if (!docOpen_) return;
    page_.clear();
    marks_ = {};
    pageOpen_ = false;
    if (!isPdf()) closeSystemDevice(true);
    docOpen_ = false;
    pagesFinishedInDoc_ = 0;
    x_ = y_ = 0;
}

// ---- the job ----

bool PagePrinter::beginJob(const std::string& outputPath) {
    if (jobOpen_) endJob(false);
    jobOpen_ = true;
    jobError_.clear();
    pagesDelivered_ = 0;
    if (!isPdf()) return true;
    jobPath_ = outputPath;
    jobFile_ = std::make_unique<JobFile>();
    if (int error = jobFile_->begin(outputPath); error != 0) {
        jobError_ = "The file " + outputPath + " could not be written: " + os::errorText(error);
        jobFile_.reset();
        return false;
    }
    return true;
}

bool PagePrinter::endJob(bool keep) {
    if (keep) endDoc();
    else killDoc();
    jobOpen_ = false;
    if (!isPdf()) return jobError_.empty();
    if (!jobFile_ && jobError_.empty()) jobError_ = "No file was named for the PDF printer to write.";
    bool ok = keep && jobFile_ && jobError_.empty();
    if (ok && pagesDelivered_ == 0) {
        jobError_ = "Nothing was printed, so " + jobPath_ + " was not written.";
        ok = false;
    }
    if (ok) pdf_->finish();
    pdf_.reset();
    if (jobFile_ && ok) {
        if (int error = jobFile_->commit(); error != 0) {
            jobError_ = "The file " + jobPath_ + " could not be written: " + os::errorText(error);
            ok = false;
        }
    } else if (jobFile_) {
        jobFile_->abandon();
    }
    jobFile_.reset();
    return ok;
}

// ---- job properties ----

std::int32_t PagePrinter::jobProperty(JobProperty which) const {
    switch (which) {
        case JobProperty::Orientation: return sheet().landscape ? 2 : 1;
        case JobProperty::Copies: return copies_;
        case JobProperty::Duplex: return duplex_;
        case JobProperty::PaperSize: return paperCode_;
        case JobProperty::PrintQuality: return quality_;
    }
    return 0;
}

int PagePrinter::setJobProperty(JobProperty which, std::int32_t value) {
    switch (which) {
        case JobProperty::Orientation:
            if (value != 1 && value != 2) return 380;
            setLandscape(value == 2);
            break;
        case JobProperty::Copies:
            if (value < 1) return 380;
            copies_ = value;
            return 0;
        case JobProperty::Duplex: return setDuplex(value);
        case JobProperty::PaperSize: return setPaper(value);
        case JobProperty::PrintQuality:
            if (value == 0 || value < -4) return 380;
            quality_ = value;
            return 0;
    }
    return 0;
}

int PagePrinter::setDuplex(std::int32_t value) {
    if (value < 1 || value > 3) return 380;  // one side, long edge, short edge
    if (!offersDuplex(value)) return 483;
    duplex_ = value;
    return 0;
}

}  // namespace hlyd
