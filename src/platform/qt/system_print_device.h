#pragma once
// One of the system's printers as a printer of this desktop drives it: its page, its job settings
// and the device its painter draws on. The printer class sees no more of the print service than
// this, so that the built-in PDF printer can be built and loaded without the print service's
// libraries (a run that only writes a PDF starts without them).
#include <QPageLayout>
#include <QPageSize>
#include <cstdint>
#include <string>

class QPaintDevice;

namespace hlyd {

class SystemPrintDevice {
public:
    virtual ~SystemPrintDevice() = default;

    virtual std::string name() const = 0;
    virtual int resolution() const = 0;
    virtual QPageLayout pageLayout() const = 0;
    virtual void setPageLayout(const QPageLayout& layout) = 0;
    virtual std::int32_t copies() const = 0;
    virtual std::int32_t duplexCode() const = 0;  // as the settings hold it: 1 one side, 2 long edge, 3 short edge
    // Whether the printer prints on both sides the way a duplex code asks (1 always).
    virtual bool offersDuplex(std::int32_t code) const = 0;
    // Whether the printer lists the paper; one that lists none takes any.
    virtual bool offersPaper(QPageSize::PageSizeId id) const = 0;
    // Puts the paper in, at the printer's own margins; the orientation is the caller's to set.
    virtual void setPaper(QPageSize::PageSizeId id) = 0;

    // The job's settings, before its first page is painted.
    virtual void setUpJob(std::int32_t copies, std::int32_t duplexCode, const QPageLayout& layout) = 0;
    virtual QPaintDevice* paintDevice() = 0;
    virtual bool newPage() = 0;
    virtual void abort() = 0;
};

}  // namespace hlyd
