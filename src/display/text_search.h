#pragma once
// Finding a text in the lines of a file as they stand in it (not in the laid-out view, whose
// indentation and wrap marks the reader never typed). A place is a record and a byte offset in
// its line.
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "analysis/record_texts.h"

namespace hlyd {

struct SearchOptions {
    bool matchCase = false;
    bool wholeWord = false;
};

struct TextPlace {
    std::int32_t record = 0;
    std::int32_t column = 0;  // bytes from the line's start
};

struct TextHit {
    std::int32_t record = 0;
    std::int32_t column = 0;
    std::int32_t length = 0;
};

struct FindOutcome {
    bool found = false;
    bool wrapped = false;  // the search passed an end of the file and went on from the other
    TextHit hit;
};

// Which records a search looks at (those the view shows); empty: all.
using RecordFilter = std::function<bool(std::int32_t record)>;

// Forward: the first hit that starts at `from` or after it; backward: the last that ends before
// `from` (so that a hit is passed over as a whole). Either goes on from the other end of the
// file when it finds none on its way.
FindOutcome findFrom(const RecordTexts& texts, std::string_view query, const SearchOptions& options, TextPlace from,
                     bool forward, const RecordFilter& searched = {});

// Every hit in file order, each after the one before it.
std::vector<TextHit> findAll(const RecordTexts& texts, std::string_view query, const SearchOptions& options,
                             const RecordFilter& searched = {});

// A byte that belongs to a word of Windows-1252 text: a letter, a digit or "_".
bool wordByte(unsigned char c);

}  // namespace hlyd
