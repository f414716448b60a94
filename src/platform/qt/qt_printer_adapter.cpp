#include "platform/qt/qt_printer_adapter.h"

#include "platform/pdf/face_files.h"
#include "platform/qt/classic_colour.h"
#include "platform/qt/classic_fonts.h"
#include "platform/qt/classic_paper.h"
#include "platform/qt/page_replay.h"
#include "platform/qt/qt_faces.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

constexpr double kQuarterInchPoints = 18;

QPageLayout pdfLayout() {
    QMarginsF strip(kQuarterInchPoints, kQuarterInchPoints, kQuarterInchPoints, kQuarterInchPoints);
    return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, strip, QPageLayout::Point);
}

}  // namespace

QtPrinter::QtPrinter() : PagePrinter(kPdfDotsPerInch, makeQtFace, true), layout_(pdfLayout()) { setDefaultFont(); }

QtPrinter::QtPrinter(std::unique_ptr<SystemPrintDevice> device)
    : PagePrinter(device->resolution(), makeQtFace, false), system_(std::move(device)), layout_(system_->pageLayout()) {
    setDefaultFont();
    setDeviceDefaults(system_->copies(), system_->duplexCode());
    setPaperCode(classicPaperCode(layout_.pageSize().id()));
}

QtPrinter::~QtPrinter() { endOpenJob(); }

PagePrinter::ResolvedFamily QtPrinter::resolveFamily(const std::string& name) {
    hlyd::ResolvedFamily resolved = hlyd::resolveFamily(fromUtf8(name));
    return {toUtf8(resolved.family), toUtf8(resolved.readBack)};
}

std::uint32_t QtPrinter::rgbOfColour(std::uint32_t colour) { return classicColour(colour).rgb(); }

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

std::string QtPrinter::deviceName() const { return system_ ? system_->name() : kPdfPrinterName; }

PrintSheet QtPrinter::sheet() const {
    QRectF full = layout_.fullRect(QPageLayout::Millimeter), paint = layout_.paintRect(QPageLayout::Millimeter);
    QRect fullPixels = layout_.fullRectPixels(printFaces().dotsPerInch());
    QRect paintPixels = layout_.paintRectPixels(printFaces().dotsPerInch());
    return {full.width(),
            full.height(),
            paint.x(),
            paint.y(),
            paint.width(),
            paint.height(),
            fullPixels.width(),
            fullPixels.height(),
            paintPixels.left(),
            paintPixels.top(),
            layout_.orientation() == QPageLayout::Landscape};
}

void QtPrinter::setLandscape(bool landscape) {
    layout_.setOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

bool QtPrinter::offersDuplex(std::int32_t code) const { return !system_ || system_->offersDuplex(code); }

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
    setPaperCode(code);
    return 0;
}

// A system printer's job opens with the first page of a document that is finished: a document
// that delivers nothing starts no print job.
bool QtPrinter::deliverToSystem() {
    if (painter_.isActive()) {
        // Some print engines refuse a new layout while printing, with a warning each time.
        if (system_->pageLayout() != pageLayout_) system_->setPageLayout(pageLayout_);
        if (!system_->newPage()) return false;
    } else {
        system_->setUpJob(copies(), duplex(), pageLayout_);
        if (!painter_.begin(system_->paintDevice())) {
            if (jobError_.empty()) jobError_ = "The printer " + deviceName() + " could not be started.";
            return false;
        }
    }
    replayPage(painter_, recording(), printFaces());
    return true;
}

void QtPrinter::closeSystemDevice(bool abort) {
    if (!painter_.isActive()) return;
    if (abort) system_->abort();
    painter_.end();
}

}  // namespace hlyd
