#pragma once
// The lines of every open file, kept once a file has been read, so that a search of all open files
// goes through memory. A file shown is kept as its analysis read it; one never shown yet is read
// once, line by line, when a search first needs it.
#include <memory>
#include <string>

#include "analysis/record_texts.h"

namespace hlyd {

void keepOpenFileTexts(const std::string& fileName, std::shared_ptr<const RecordTexts> texts);
// The file's lines; none when it cannot be read.
std::shared_ptr<const RecordTexts> openFileTexts(const std::string& fileName);
// Drops the lines of files no longer open.
void forgetClosedFileTexts();

}  // namespace hlyd
