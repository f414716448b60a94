#pragma once
// A printer: a drawing surface in twips that also has pages, documents, job properties and the
// capabilities of its device. The system's printers, the built-in PDF printer, the recording
// printer of the tools and tests, and the null printer of a machine with none all stand behind it.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/session.h"
#include "platform/surface.h"

namespace hlyd {

// The device's own figures, in its pixels: what the page geometry is computed from.
struct PrinterCaps {
    std::int32_t PhysicalWidth = 0;  // the whole sheet
    std::int32_t PhysicalHeight = 0;
    std::int32_t PhysicalOffsetX = 0;  // the unprintable strip at the left and at the top
    std::int32_t PhysicalOffsetY = 0;
    std::int32_t PixelsPerInchX = 0;
    std::int32_t PixelsPerInchY = 0;
};

// The job properties a print command may set. A device may refuse a value: setJobProperty then
// answers 380 (value not valid) or 483 (property not supported), which the caller raises.
enum class JobProperty { Orientation, Copies, Duplex, PaperSize, PrintQuality };

class Printer : public Surface {
public:
    virtual std::string deviceName() const = 0;
    virtual PrinterCaps caps() const = 0;

    // The printable area in twips, as the device gives it.
    virtual float scaleLeft() const = 0;
    virtual float scaleTop() const = 0;
    virtual float scaleHeight() const = 0;
    // scaleWidth(), width() and height() (the whole page in twips) come from Surface.

    // Pages and documents. Page() counts the pages of the document in progress, from 1.
    virtual void newPage() = 0;
    virtual void endDoc() = 0;
    // Ends the document in progress and drops the pages of it that were not delivered yet.
    virtual void killDoc() = 0;
    virtual std::int32_t page() const = 0;
    // What the page about to begin is: its printed number and its kind (1 code, 2 project file,
    // 3 procedure contents, 4 project contents). A printer may label its pages with it.
    virtual void setPageLabel(std::int32_t printedNumber, int kind) { (void)printedNumber, (void)kind; }

    // Places a reader of the document can go to; a printer that makes no such document (paper, the
    // recording printer unless asked) ignores them. nameDestination names the place at height `y`
    // (twips) of the page being drawn; with a title (Windows-1252) the place also gets an entry in
    // the document's outline, at `level` 0 for a file or 1 for a procedure under the file before it.
    // The first place of a name is the one links go to.
    virtual void nameDestination(const std::string& name, float y, const std::string& title, int level) {
        (void)name, (void)y, (void)title, (void)level;
    }
    // Makes a rectangle of the page being drawn (twips) a link to the place of that name, named
    // before or after; a link to a name never named leads nowhere and is left out.
    virtual void linkTo(float left, float top, float right, float bottom, const std::string& name) {
        (void)left, (void)top, (void)right, (void)bottom, (void)name;
    }

    virtual std::int32_t jobProperty(JobProperty which) const = 0;
    // 0 when taken, else the error number of the refusal.
    virtual int setJobProperty(JobProperty which, std::int32_t value) = 0;

    // One print command is one job. A printer that writes a file takes its target here; the file
    // appears only when the job ends with keep true and everything could be written (false
    // otherwise: then nothing is left behind, and an existing file stays as it was). beginJob is
    // false when the job cannot even begin (the file cannot be made where it is to go): the run
    // then ends before its first page instead of after its last.
    virtual bool beginJob(const std::string& outputPath) {
        (void)outputPath;
        return true;
    }
    virtual bool endJob(bool keep) {
        (void)keep;
        return true;
    }
    // Why the job could not begin, or why the last endJob failed, for the message the user gets.
    virtual std::string jobError() const { return {}; }
    // Pages that reached the device or file so far: the count the user is told after a run.
    virtual std::int32_t pagesDelivered() const { return 0; }
};

// The built-in printer that writes a job to a PDF file; every machine has it.
inline constexpr const char* kPdfPrinterName = "PDF";

// The printers of this machine: the system's, and the built-in ones.
class PrinterSystem {
public:
    virtual ~PrinterSystem() = default;
    virtual std::vector<std::string> printerNames() const = 0;
    // Empty when the machine has no printer at all.
    virtual std::string defaultPrinterName() const = 0;
    // The printer of that name; nullptr when there is none.
    virtual std::unique_ptr<Printer> open(const std::string& name) = 0;
};

// The printer in force, also installed as the printer surface; none until the start or a test
// installs one. The caller keeps ownership.
inline Printer* currentPrinter() { return currentSession().ports.printer; }
void setCurrentPrinter(Printer* printer);

inline PrinterSystem* printerSystem() { return currentSession().ports.printers; }
void setPrinterSystem(PrinterSystem* system);

}  // namespace hlyd
