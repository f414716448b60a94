#pragma once
// The lines of a printed cross-reference, before they meet the paper: each name of the index with
// the page of its declaration and the pages of its uses, as the run printed them.
#include <cstdint>
#include <string>
#include <vector>

#include "printing/line_pages.h"
#include "xref/name_index.h"

namespace hlyd {

struct XrefPage {
    std::int32_t runPage = 0;
    bool written = false;  // some use on the page assigns to the name
};

// The uses in one file: each page once, ascending.
struct XrefFileUses {
    std::string file;
    std::vector<XrefPage> pages;
};

struct XrefEntry {
    std::string name;
    std::string kind;
    std::string declaredFile;
    std::int32_t declaredPage = 0;   // the run page; 0 when the declaration was not printed
    std::vector<XrefFileUses> uses;  // the files in the order printed
};

// The names whose declaration or some use was printed, ordered by name without regard to case
// (the same name in several places in the order printed).
std::vector<XrefEntry> crossReferenceEntries(const NameIndex& index, const LinePages& pages);

}  // namespace hlyd
