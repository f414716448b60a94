#pragma once
// How the program was started decides everything that follows.
#include <cstdint>
#include <string>

namespace hlyd {

enum StartModeValue : std::int32_t {
    kStartStandalone = 0,
    kStartAutomation = 1,
    kStartCommandLineFile = 2,
    kStartIdeMode = 3,
    kStartInit = 4,
};

// The file named on the command line: trimmed, switches and double quotes removed.
std::string commandLineFileName(const std::string& commandLine);

// The start mode for the platform's own mode (standalone or automation) and the command line.
std::int32_t decideStartMode(std::int32_t platformMode, const std::string& commandLine);

}  // namespace hlyd
