#pragma once
// Where things stand in a listing: the procedure table of a file, the procedures of a whole
// project, and the table of contents of a print run. Each is printed after the code, when the
// pages of the procedures are known from the run itself.
#include <cstdint>
#include <string>
#include <vector>

#include "printing/print_state.h"

namespace hlyd {

constexpr std::int16_t kTocBlank = 0;
constexpr std::int16_t kTocProject = 1;
constexpr std::int16_t kTocFile = 2;
constexpr std::int16_t kTocProcedure = 3;

struct TocEntry {
    std::int16_t Type = kTocBlank;
    std::string Text;
    std::string Page;         // the printed page number and two blanks
    std::string Destination;  // the place the entry links to; none for a blank line
};

// The table of contents of the run, from 1; entry 0 is unused.
std::vector<TocEntry>& TOC();
void resetTOC();
// A line of another kind than a procedure: a blank line, a project or a file.
void addTocEntry(std::int16_t type, const std::string& text, const std::string& destination = {});

// Adds a procedure, or with `continued` appends the text to the last one; the page is the last given.
// It links to the declaration printed last.
void SetTOC(const std::string& text, std::int32_t page, bool continued);
// Returns the number of its pages.
std::int32_t EmitTOC(wPos& pos);
void EmitProcContents(wPos& pos, std::int32_t& contentsPages, bool mode, bool project);
void EmitProcContentsForOneFile(wPos& pos, bool mode);
void EmitProcContentsProject(wPos& pos);

}  // namespace hlyd
