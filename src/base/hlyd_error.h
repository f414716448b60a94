#pragma once
// The one exception of the system: error 32000 (an internal fault, after BabStatus was set) and the
// classic run-time faults (5, 6, 9, 14, 53, 55, 68, 71, ...) travel as HlydError with their number.
#include <stdexcept>
#include <string>

namespace hlyd {

constexpr int kInternalError = 32000;

class HlydError : public std::runtime_error {
public:
    HlydError(int number, std::string description, std::string source = {})
        : std::runtime_error(description),
          Number(number),
          Description(std::move(description)),
          Source(std::move(source)) {}
    int Number;
    std::string Description;
    std::string Source;
};

// The description that the classic runtime gives for an error number.
std::string errorDescription(int number);

// Raises error 32000 from the named procedure; the caller has set BabStatus before.
[[noreturn]] void raiseInternal(const std::string& source);

// Raises the run-time fault of that number with its classic description.
[[noreturn]] void raiseRuntime(int number, const std::string& source = {});

// The run-time fault number that an operating-system error stands for (53 for a missing file, ...).
int runtimeErrorFromErrno(int err);
// The reason for a failure of the system (an errno value), for the user.
std::string describeSystemError(int err);

}  // namespace hlyd
