#pragma once
// Printer systems that need no desktop: one with no printer at all, and one whose only printer is
// the recording printer.
#include <memory>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "printing/recording_printer.h"

namespace hlyd {

// A machine with no printer: every printing path meets "no printer".
class NoPrinterSystem : public PrinterSystem {
public:
    std::vector<std::string> printerNames() const override { return {}; }
    std::string defaultPrinterName() const override { return {}; }
    std::unique_ptr<Printer> open(const std::string&) override { return nullptr; }
};

// One recording printer, answering to the given name; it is also the default. Each open gives a
// fresh printer that tells its calls to the sink.
class RecordingPrinterSystem : public PrinterSystem {
public:
    explicit RecordingPrinterSystem(std::string name, RecordingPrinter::Sink sink = {});
    std::vector<std::string> printerNames() const override { return {name_}; }
    std::string defaultPrinterName() const override { return name_; }
    std::unique_ptr<Printer> open(const std::string& name) override;
    // The printer opened last, while whoever opened it keeps it; for the counts at a run's end.
    RecordingPrinter* printer() const { return printer_; }

protected:
    const std::string& name() const { return name_; }
    const RecordingPrinter::Sink& sink() const { return sink_; }

private:
    std::string name_;
    RecordingPrinter::Sink sink_;
    RecordingPrinter* printer_ = nullptr;
};

}  // namespace hlyd
