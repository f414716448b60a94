#pragma once
// Find in the view: the next or previous place of a text in the file shown, lit and scrolled into
// view with the procedure list following, and the places of a text in every open file.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "display/text_search.h"

namespace hlyd {

struct FindState {
    std::string query;
    SearchOptions options;
    TextHit current;
    const RecordTexts* of = nullptr;  // the file the current hit is in
};

FindState& findState();
void resetFindState();

// Goes to the next (or previous) place of the text from the current hit, else from the selection
// or the top of the view: selects it and shows it. The status tells of a wrap past an end of the
// file and of a text not found. Answers whether it found one.
bool findInView(const std::string& query, const SearchOptions& options, bool forward);

// The hit to light in the view, while it is in the file shown.
std::optional<TextHit> currentHit();

struct FileHit {
    std::string fileName;
    TextHit hit;
    std::string line;  // the line as it stands in the file
};

// The places of the text in every open source file, file by file in the order they were opened.
std::vector<FileHit> findInOpenFiles(const std::string& query, const SearchOptions& options);

// Shows the file of the hit (when it is still open) and the hit in it.
void showFileHit(const FileHit& hit);

}  // namespace hlyd
