#include "base/vb_convert.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/hlyd_error.h"

namespace hlyd {

namespace {

constexpr int kOverflow = 6;

// Rounds first and compares in double, where every 32-bit value is exact; NaN fails both tests.
template <class Int>
Int roundedInto(double value, const std::string& source) {
    double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Int>::min() && rounded <= std::numeric_limits<Int>::max()))
        raiseRuntime(kOverflow, source);
    return static_cast<Int>(rounded);
}

}  // namespace

std::int16_t int16Of(std::int64_t value, const std::string& source) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        raiseRuntime(kOverflow, source);
    return static_cast<std::int16_t>(value);
}

std::int16_t cintOf(double value, const std::string& source) { return roundedInto<std::int16_t>(value, source); }

std::int32_t clngOf(double value, const std::string& source) { return roundedInto<std::int32_t>(value, source); }

void incrementInt16(std::int16_t& count, const std::string& source) { count = int16Of(count + 1, source); }

bool isNumeric(const std::string& text) {
    std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return false;
    std::size_t last = text.find_last_not_of(" \t");
    std::string number = text.substr(first, last - first + 1);
    char* end = nullptr;
    std::strtod(number.c_str(), &end);
    return end == number.c_str() + number.size() && number.find_first_of("xXpPnN") == std::string::npos;
}

}  // namespace hlyd
