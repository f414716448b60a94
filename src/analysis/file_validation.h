#pragma once
// Looking at the first line of a file that is not blank: is this Visual Basic source at all, and
// which dialect does it say it is ("?" when it does not say).
#include <string>

namespace hlyd {

// With `tellUser` false the boxes are written to the log only: a caller that sums up the
// failures of many files tells the user once.
void BabValidateFile(const std::string& fileName, std::string& dialect, bool tellUser = true);

// The dialect code that the first non-blank line gives: "?" when it says nothing; empty when
// the line is no Visual Basic source. Pure, for the validation and its tests.
std::string dialectOfFirstLine(const std::string& line);

}  // namespace hlyd
