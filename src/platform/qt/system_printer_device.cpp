#include "platform/qt/system_printer_device.h"

#include <QPrinterInfo>
#include <algorithm>

#include "platform/qt/qt_printer_adapter.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

class QPrinterDevice : public SystemPrintDevice {
public:
    explicit QPrinterDevice(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {
        printer_->setFullPage(false);
    }

    std::string name() const override { return toUtf8(printer_->printerName()); }
    int resolution() const override { return printer_->resolution(); }
    QPageLayout pageLayout() const override { return printer_->pageLayout(); }
    void setPageLayout(const QPageLayout& layout) override { printer_->setPageLayout(layout); }
    std::int32_t copies() const override { return printer_->copyCount(); }
    std::int32_t duplexCode() const override { return classicDuplexCode(printer_->duplex()); }

    bool offersDuplex(std::int32_t code) const override {
        std::optional<QPrinter::DuplexMode> mode = classicDuplex(code);
        if (!mode) return false;
        if (code == 1) return true;
        QList<QPrinter::DuplexMode> supported = QPrinterInfo(*printer_).supportedDuplexModes();
        return supported.contains(*mode) || supported.contains(QPrinter::DuplexAuto);
    }

    bool offersPaper(QPageSize::PageSizeId id) const override {
        QList<QPageSize> supported = QPrinterInfo(*printer_).supportedPageSizes();
        return supported.isEmpty() ||
               std::any_of(supported.begin(), supported.end(), [&](const QPageSize& s) { return s.id() == id; });
    }

    void setPaper(QPageSize::PageSizeId id) override { printer_->setPageSize(QPageSize(id)); }

    void setUpJob(std::int32_t copies, std::int32_t duplexCode, const QPageLayout& layout) override {
        printer_->setCopyCount(copies);
        printer_->setDuplex(classicDuplex(duplexCode).value_or(QPrinter::DuplexNone));
        printer_->setPageLayout(layout);
    }
    QPaintDevice* paintDevice() override { return printer_.get(); }
    bool newPage() override { return printer_->newPage(); }
    void abort() override { printer_->abort(); }

private:
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace

std::unique_ptr<SystemPrintDevice> systemPrintDevice(std::unique_ptr<QPrinter> printer) {
    return std::make_unique<QPrinterDevice>(std::move(printer));
}

QtPrinter::QtPrinter(std::unique_ptr<QPrinter> device) : QtPrinter(systemPrintDevice(std::move(device))) {}

std::optional<QPrinter::DuplexMode> classicDuplex(std::int32_t code) {
    switch (code) {
        case 1: return QPrinter::DuplexNone;
        case 2: return QPrinter::DuplexLongSide;
        case 3: return QPrinter::DuplexShortSide;
        default: return std::nullopt;
    }
}

std::int32_t classicDuplexCode(QPrinter::DuplexMode mode) {
    switch (mode) {
        case QPrinter::DuplexLongSide: return 2;
        case QPrinter::DuplexShortSide: return 3;
        default: return 1;
    }
}

}  // namespace hlyd
