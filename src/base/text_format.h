#pragma once
// Small text formats shared by the log and the reports.
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace hlyd {

// The number in at least `width` digits, zeros in front ("0000042"); wider numbers keep all digits.
std::string zeroPad(std::int64_t value, int width);

// The moment in a picture of yyyy, mm, dd, hh, mm (minutes after hh), ss: "yyyy/mm/dd hh:mm:ss".
std::string formatTimestamp(std::time_t t, const std::string& picture);

std::string formatDate(std::time_t t);  // mm/dd/yyyy
std::string formatTime(std::time_t t);  // hh:mm:ss

// Blanks (not tabs) off both ends, as the classic Trim does.
std::string trimSpaces(const std::string& s);
std::string lowerCaseAscii(std::string s);
// The pieces between every `at`: "a  b" split at blanks is "a", "", "b"; an empty text is one
// empty piece.
std::vector<std::string> splitOn(const std::string& text, char at);

// Blanks and tabs off both ends.
std::string trimBlanks(const std::string& s);

}  // namespace hlyd
