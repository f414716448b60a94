#pragma once
// Delimited text input as the keyword file is written: values separated by commas or line ends,
// each one quoted or bare.
#include <string>
#include <string_view>

namespace hlyd {

class DelimitedReader {
public:
    explicit DelimitedReader(std::string_view content) : text_(content) {}
    bool atEnd();  // nothing but blanks and line ends is left
    std::string readValue();

private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

}  // namespace hlyd
