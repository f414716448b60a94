#include "printing/printer_systems.h"

#include <utility>

namespace hlyd {

RecordingPrinterSystem::RecordingPrinterSystem(std::string name, RecordingPrinter::Sink sink)
    : name_(std::move(name)), sink_(std::move(sink)) {}

std::unique_ptr<Printer> RecordingPrinterSystem::open(const std::string& name) {
    if (name != name_) return nullptr;
    auto printer = std::make_unique<RecordingPrinter>(name_, sink_);
    printer_ = printer.get();
    return printer;
}

}  // namespace hlyd
