#pragma once
// The page on which each printed source line landed, noted while the code is printed, so that a
// cross-reference printed after it can tell where each name is declared and used. A page is known
// by its place in the run (from 1), which stays unique when every module numbers its pages anew.
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace hlyd {

struct LinePages {
    bool noting = false;
    std::vector<std::int32_t> printedNumber = std::vector<std::int32_t>(1);  // by run page: the number shown
    // By file: for each record (from 1) the run page its first line went on; 0 when not printed.
    std::unordered_map<std::string, std::vector<std::int32_t>> byFile;
    std::vector<std::int32_t>* current = nullptr;  // the file being printed
};

LinePages& linePages();

// A new run; with `noting` false nothing is noted and the listing stays as it was without it.
void beginNotingPages(bool noting);
// A page of the listing has begun, with the number shown on it; it is named for the links to it.
void notePageBegun(std::int32_t printedNumber);
// The file about to be printed, with its records.
void notePagesOfFile(const std::string& file, std::int32_t recordCount);
// The record's first line is being placed on the page begun last.
void noteLinePage(std::int32_t record);

// The run page of a file's record; 0 when it was not printed.
std::int32_t pageOfLine(const LinePages& pages, const std::string& file, std::int32_t record);

// The place a page of the run is named by.
std::string pageDestination(std::int32_t runPage);

}  // namespace hlyd
