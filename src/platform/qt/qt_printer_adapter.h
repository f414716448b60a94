#pragma once
// A printer of this desktop drawn with Qt: one of the system's printers (through Qt's print
// support) or the built-in "PDF" printer with the faces of Qt's font engine. The page's
// recording, the PDF file and the job are the page printer's (page_printer.h); this adds the
// font database, the palette, the page layout and the system printer's device.
#include <QPageLayout>
#include <QPainter>
#include <memory>

#include "platform/pdf/page_printer.h"
#include "platform/qt/system_print_device.h"

class QPrinter;

namespace hlyd {

class QtPrinter : public PagePrinter {
public:
    // The built-in PDF printer.
    QtPrinter();
    // A system printer: a QPrinter set up for it. Defined with the QPrinter device, so that only
    // what links Qt's print support can make one.
    explicit QtPrinter(std::unique_ptr<QPrinter> device);
    explicit QtPrinter(std::unique_ptr<SystemPrintDevice> device);
    ~QtPrinter() override;

    std::vector<std::string> fonts() const override;
    std::size_t fontCount() const override;
    std::string deviceName() const override;

protected:
    ResolvedFamily resolveFamily(const std::string& name) override;
    std::uint32_t rgbOfColour(std::uint32_t colour) override;
    PrintSheet sheet() const override;
    void setLandscape(bool landscape) override;
    int setPaper(std::int32_t code) override;
    bool offersDuplex(std::int32_t code) const override;
    bool deliverToSystem() override;
    void closeSystemDevice(bool abort) override;
    void pageBegins() override { pageLayout_ = layout_; }

private:
    std::unique_ptr<SystemPrintDevice> system_;
    QPainter painter_;
    QPageLayout layout_;      // as the job properties set it
    QPageLayout pageLayout_;  // of the page being drawn: as layout_ was when it began
};

}  // namespace hlyd
