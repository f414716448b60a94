#pragma once
// Numbers as the classic runtime converts them: a value that does not fit its integer type raises
// error 6 ("Overflow") instead of wrapping, so a 16-bit count never runs past 32767 and a number
// from a file never becomes something it was not.
#include <cstdint>
#include <string>

namespace hlyd {

// A whole number as a 16-bit integer.
std::int16_t int16Of(std::int64_t value, const std::string& source = {});

// A number as a 16-bit or 32-bit integer: rounded, halves to even, as the runtime assigns it.
std::int16_t cintOf(double value, const std::string& source = {});
std::int32_t clngOf(double value, const std::string& source = {});

// True when the text, blanks aside, reads whole as a number ("12", " 3.5 ", "-1"), as a typed
// field is tested before its value is taken.
bool isNumeric(const std::string& text);

// Adds one to a 16-bit count.
void incrementInt16(std::int16_t& count, const std::string& source = {});

}  // namespace hlyd
