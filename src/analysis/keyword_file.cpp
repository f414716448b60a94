#include "analysis/keyword_file.h"

namespace hlyd {

namespace {
bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
}  // namespace

bool DelimitedReader::atEnd() {
    while (pos_ < text_.size() && (isBlank(text_[pos_]) || isLineEnd(text_[pos_]))) ++pos_;
    return pos_ >= text_.size();
}

std::string DelimitedReader::readValue() {
    while (pos_ < text_.size() && (isBlank(text_[pos_]) || isLineEnd(text_[pos_]))) ++pos_;
    std::string value;
    if (pos_ < text_.size() && text_[pos_] == '"') {
        std::size_t close = text_.find('"', pos_ + 1);
        if (close == std::string_view::npos) close = text_.size();
        value = std::string(text_.substr(pos_ + 1, close - pos_ - 1));
        pos_ = close + 1;
        while (pos_ < text_.size() && isBlank(text_[pos_])) ++pos_;
    } else {
        std::size_t start = pos_;
        while (pos_ < text_.size() && text_[pos_] != ',' && !isLineEnd(text_[pos_])) ++pos_;
        value = std::string(text_.substr(start, pos_ - start));
        while (!value.empty() && isBlank(value.back())) value.pop_back();
    }
    if (pos_ < text_.size() && text_[pos_] == ',') ++pos_;
    return value;
}

}  // namespace hlyd
