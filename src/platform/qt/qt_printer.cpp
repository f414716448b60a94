#include "platform/qt/qt_printer.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/classic_colour.h"
#include "platform/qt/classic_fonts.h"
#include "platform/qt/classic_paper.h"
#include "platform/pdf/face_files.h"
#include "platform/qt/page_replay.h"
#include "platform/qt/qt_faces.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

// Millimetres, in which Qt keeps every paper exactly (A4 is no whole number of points).
constexpr double kTwipsPerMillimetre = 1440 / 25.4;
constexpr double kQuarterInchPoints = 18;
const char* const kDefaultFont = "Courier New";
constexpr double kDefaultSize = 10;

QPageLayout pdfLayout() {
    QMarginsF strip(kQuarterInchPoints, kQuarterInchPoints, kQuarterInchPoints, kQuarterInchPoints);
    return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, strip, QPageLayout::Point);
}

}  // namespace

QtPrinter::QtPrinter() : layout_(pdfLayout()), faces_(kPdfDotsPerInch, makeQtFace) {
    key_.points = kDefaultSize;
    setFontName(kDefaultFont);
}

QtPrinter::QtPrinter(std::unique_ptr<SystemPrintDevice> device)
    : system_(std::move(device)), layout_(system_->pageLayout()), faces_(system_->resolution(), makeQtFace) {
    key_.points = kDefaultSize;
    setFontName(kDefaultFont);
    copies_ = system_->copies();
    duplex_ = system_->duplexCode();
    paperCode_ = classicPaperCode(layout_.pageSize().id());
}

QtPrinter::~QtPrinter() {
    if (jobOpen_) endJob(false);
    killDoc();
}

// ---- fonts and measures ----

// Printing switches between a few names for nearly every token; each is resolved once.
void QtPrinter::setFontName(const std::string& name) {
    fontNameAsked_ = name;
    auto known = resolvedNames_.find(name);
    if (known == resolvedNames_.end()) {
        ResolvedFamily resolved = resolveFamily(fromUtf8(name));
        std::string resolvedFamily = toUtf8(resolved.family);
        auto family = std::find(families_.begin(), families_.end(), resolvedFamily);
        if (family == families_.end()) family = families_.insert(family, resolvedFamily);
        auto number = static_cast<std::uint32_t>(family - families_.begin());
        known = resolvedNames_.emplace(name, ResolvedName{resolvedFamily, number, toUtf8(resolved.readBack)}).first;
    }
    fontNameRead_ = known->second.readBack;
    if (familyNumber_ == known->second.familyNumber) return;
    key_.family = known->second.family;
    familyNumber_ = known->second.familyNumber;
    face_ = nullptr;
}

// As the properties one by one would set it; a name set again before is not looked up again.
void QtPrinter::setTextStyle(const TextStyle& style) {
    foreColor_ = style.colour;
    if (style.fontName != fontNameAsked_ || fontNameAsked_.empty()) setFontName(std::string(style.fontName));
    setFontSize(style.points);
    setStyle(key_.bold, style.bold);
    setStyle(key_.italic, style.italic);
    setStyle(key_.strikeOut, style.strikethrough);
    setStyle(key_.underline, style.underline);
}

void QtPrinter::setFontSize(double points) {
    if (points <= 0 || points == key_.points) return;
    key_.points = points;
    face_ = nullptr;
}

void QtPrinter::setStyle(bool& flag, bool on) {
    if (flag == on) return;
    flag = on;
    face_ = nullptr;
}

const PrintFace& QtPrinter::face() {
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

QRgb QtPrinter::rgbOf(std::uint32_t colour) {
    if (colour == cachedColourKey_[0]) return cachedColour_[0];
    // The colour looked up last goes first; the one before it second.
    std::swap(cachedColourKey_[0], cachedColourKey_[1]);
    std::swap(cachedColour_[0], cachedColour_[1]);
    if (colour != cachedColourKey_[0]) {
        cachedColourKey_[0] = colour;
        cachedColour_[0] = classicColour(colour).rgb();
    }
    return cachedColour_[0];
}

float QtPrinter::textWidth(const std::string& text) {
    return static_cast<float>(face().width(text) * 1440.0 / dotsPerInch());
}

float QtPrinter::textHeight(const std::string& text) {
    return static_cast<float>(measuredLines(text) * face().lineSpacing * 1440.0 / dotsPerInch());
}

std::vector<std::string> QtPrinter::fonts() const {
    std::vector<std::string> names;
    for (const QString& family : deviceFamilies()) names.push_back(toUtf8(family));
    for (const QString& classic : availableClassicNames()) names.push_back(toUtf8(classic));
    return names;
}

// Every print asks; the answer changes only with the installed fonts.
std::size_t QtPrinter::fontCount() const {
    if (auto known = rememberedNumber("printer fonts")) return static_cast<std::size_t>(*known);
    auto count = static_cast<std::size_t>(deviceFamilyCount() + availableClassicNames().size());
    rememberNumber("printer fonts", static_cast<long long>(count));
    return count;
}

// ---- drawing ----

void QtPrinter::print(const std::string& text) { printText(text, false); }

void QtPrinter::printMark(const std::string& text) { printText(text, true); }

void QtPrinter::printStandingFor(const std::string& shown, const std::string& actual) {
    printText(shown, false, actual);
}

void QtPrinter::printText(const std::string& text, bool artifact, std::string_view actual) {
    ensurePage();
    const PrintFace& f = face();
    double width = f.width(text);
    if (!text.empty())
        page_.text(toPixels(x_), toPixels(y_), f.index, rgbOf(foreColor_), text, width, artifact, actual);
    x_ += static_cast<float>(width * 1440.0 / dotsPerInch());
}

void QtPrinter::line(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    ensurePage();
    page_.line(toPixels(x1), toPixels(y1), toPixels(x2), toPixels(y2), rgbOf(colour), drawWidth_);
    x_ = x2;
    y_ = y2;
}

void QtPrinter::filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    ensurePage();
    page_.box(toPixels(x1), toPixels(y1), toPixels(x2), toPixels(y2), rgbOf(colour));
    x_ = x2;
    y_ = y2;
}

void QtPrinter::setPageLabel(std::int32_t printedNumber, int kind) {
    if (!isPdf()) return;
    constexpr int kProcedureContents = 3;  // counted in Roman numerals of their own
    marks_.labelled = true;
    marks_.number = printedNumber;
    marks_.roman = kind == kProcedureContents;
}

void QtPrinter::nameDestination(const std::string& name, float y, const std::string& title, int level) {
    if (!isPdf()) return;
    ensurePage();
    marks_.destinations.push_back({name, title, level, toPixels(y)});
}

void QtPrinter::linkTo(float left, float top, float right, float bottom, const std::string& name) {
    if (!isPdf()) return;
    ensurePage();
    marks_.links.push_back({toPixels(std::min(left, right)), toPixels(std::min(top, bottom)),
                            toPixels(std::max(left, right)), toPixels(std::max(top, bottom)), name});
}

void QtPrinter::cls() {
    page_.clear();
    x_ = y_ = 0;
}

// ---- the page and the device ----

float QtPrinter::width() const {
    return static_cast<float>(std::round(layout_.fullRect(QPageLayout::Millimeter).width() * kTwipsPerMillimetre));
}
float QtPrinter::height() const {
    return static_cast<float>(std::round(layout_.fullRect(QPageLayout::Millimeter).height() * kTwipsPerMillimetre));
}
float QtPrinter::scaleWidth() const { return static_cast<float>(paintRectTwips().width()); }
float QtPrinter::scaleHeight() const { return static_cast<float>(paintRectTwips().height()); }

QRectF QtPrinter::paintRectTwips() const {
    QRectF mm = layout_.paintRect(QPageLayout::Millimeter);
    return {std::round(mm.x() * kTwipsPerMillimetre), std::round(mm.y() * kTwipsPerMillimetre),
            std::round(mm.width() * kTwipsPerMillimetre), std::round(mm.height() * kTwipsPerMillimetre)};
}

int QtPrinter::twipsPerPixelX() const { return std::max(1, static_cast<int>(std::lround(1440.0 / dotsPerInch()))); }

std::string QtPrinter::deviceName() const { return isPdf() ? kPdfPrinterName : system_->name(); }

PrinterCaps QtPrinter::caps() const {
    QRect full = layout_.fullRectPixels(dotsPerInch());
    QRect paint = layout_.paintRectPixels(dotsPerInch());
    return {full.width(), full.height(), paint.left(), paint.top(), dotsPerInch(), dotsPerInch()};
}

void QtPrinter::ensurePage() {
    if (!docOpen_) {
        docOpen_ = true;
        pagesFinishedInDoc_ = 0;
    }
    if (!pageOpen_) pageLayout_ = layout_;  // a change of paper or orientation applies from the next page
    pageOpen_ = true;
}

// The PDF's file opens with the job, its first page comes with the first page finished.
bool QtPrinter::deliverToPdf() {
    if (!jobFile_) return false;
    if (!pdf_) pdf_ = std::make_unique<PdfWriter>(*jobFile_);
    constexpr double kPointsPerMillimetre = 72 / 25.4;
    QSizeF sheet = pageLayout_.fullRect(QPageLayout::Millimeter).size() * kPointsPerMillimetre;
    QPointF origin = pageLayout_.paintRect(QPageLayout::Millimeter).topLeft() * kPointsPerMillimetre;
    pdf_->addPage(page_, faces_, dotsPerInch(), {sheet.width(), sheet.height()}, {origin.x(), origin.y()}, marks_);
    return true;
}

// A system printer's job opens with the first page of a document that is finished: a document
// that delivers nothing starts no print job.
bool QtPrinter::deliverToSystem() {
    if (painter_.isActive()) {
        // Some print engines refuse a new layout while printing, with a warning each time.
        if (system_->pageLayout() != pageLayout_) system_->setPageLayout(pageLayout_);
        if (!system_->newPage()) return false;
    } else {
        system_->setUpJob(copies_, duplex_, pageLayout_);
        if (!painter_.begin(system_->paintDevice())) {
            if (jobError_.empty()) jobError_ = "The printer " + deviceName() + " could not be started.";
            return false;
        }
    }
    replayPage(painter_, page_, faces_);
    return true;
}

void QtPrinter::closeSystemDevice(bool abort) {
    if (!painter_.isActive()) return;
    if (abort) system_->abort();
    painter_.end();
}

void QtPrinter::finishPage() {
    if (isPdf() ? deliverToPdf() : deliverToSystem()) ++pagesDelivered_;
    largestPageText_ = std::max(largestPageText_, page_.textBytes());
    page_.clear();
    marks_ = {};
    pageOpen_ = false;
    ++pagesFinishedInDoc_;
    x_ = y_ = 0;
}

void QtPrinter::newPage() {
    ensurePage();
    finishPage();
}

void QtPrinter::endDoc() {
    if (!docOpen_) return;
    if (pageOpen_) finishPage();
    if (system_) closeSystemDevice(false);
    docOpen_ = false;
    pagesFinishedInDoc_ = 0;
    x_ = y_ = 0;
}

void QtPrinter::killDoc() {
    if (!docOpen_) return;
    page_.clear();
    marks_ = {};
    pageOpen_ = false;
    if (system_) closeSystemDevice(true);
    docOpen_ = false;
    pagesFinishedInDoc_ = 0;
    x_ = y_ = 0;
}

// ---- the job ----

bool QtPrinter::beginJob(const std::string& outputPath) {
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

bool QtPrinter::endJob(bool keep) {
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

std::int32_t QtPrinter::jobProperty(JobProperty which) const {
    switch (which) {
        case JobProperty::Orientation: return layout_.orientation() == QPageLayout::Landscape ? 2 : 1;
        case JobProperty::Copies: return copies_;
        case JobProperty::Duplex: return duplex_;
        case JobProperty::PaperSize: return paperCode_;
        case JobProperty::PrintQuality: return quality_;
    }
    return 0;
}

int QtPrinter::setJobProperty(JobProperty which, std::int32_t value) {
    switch (which) {
        case JobProperty::Orientation:
            if (value != 1 && value != 2) return 380;
            layout_.setOrientation(value == 2 ? QPageLayout::Landscape : QPageLayout::Portrait);
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

int QtPrinter::setDuplex(std::int32_t value) {
    if (value < 1 || value > 3) return 380;  // one side, long edge, short edge
    if (system_ && !system_->offersDuplex(value)) return 483;
    duplex_ = value;
    return 0;
}

// The PDF printer takes any paper code and makes Letter of one it does not know; a system printer
// refuses a paper it does not list.
int QtPrinter::setPaper(std::int32_t code) {
    std::optional<QPageSize::PageSizeId> id = classicPaper(code);
    if (system_) {
        if (!id || !system_->offersPaper(*id)) return 380;
        QPageLayout::Orientation orientation = layout_.orientation();
        system_->setPaper(*id);
        layout_ = system_->pageLayout();
        layout_.setOrientation(orientation);
    } else {
        layout_.setPageSize(QPageSize(id.value_or(QPageSize::Letter)));
    }
    paperCode_ = code;
    return 0;
}

}  // namespace hlyd
