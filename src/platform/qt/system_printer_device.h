#pragma once
// A printer of the print service (a QPrinter) as the printer class drives it, and the duplex
// codes of the classic desktop's drivers in the print service's terms.
#include <QPrinter>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/qt/system_print_device.h"

namespace hlyd {

std::unique_ptr<SystemPrintDevice> systemPrintDevice(std::unique_ptr<QPrinter> printer);

// The duplex mode of a classic code; nothing for a code outside 1 to 3.
std::optional<QPrinter::DuplexMode> classicDuplex(std::int32_t code);
std::int32_t classicDuplexCode(QPrinter::DuplexMode mode);

}  // namespace hlyd
