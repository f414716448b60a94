#include "printing/cross_reference_entries.h"

#include <algorithm>
#include <tuple>

#include "platform/char_case.h"

namespace hlyd {

namespace {

struct PrintedUse {
    std::int32_t runPage = 0;
    bool written = false;
    const std::string* file = nullptr;
};

// The uses that were printed, by page; a page with several uses of the name is there once.
std::vector<PrintedUse> printedUses(const IndexedName& name, const LinePages& pages) {
    std::vector<PrintedUse> uses;
    for (const NameUse& use : name.uses)
        if (std::int32_t page = pageOfLine(pages, use.place.file, use.place.line); page > 0)
            uses.push_back({page, use.written, &use.place.file});
    std::sort(uses.begin(), uses.end(), [](const PrintedUse& a, const PrintedUse& b) { return a.runPage < b.runPage; });
    std::vector<PrintedUse> once;
    for (const PrintedUse& use : uses) {
        if (!once.empty() && once.back().runPage == use.runPage) once.back().written |= use.written;
        else once.push_back(use);
    }
    return once;
}

// A file's pages follow one another in a run, so the uses fall into files where the file changes.
std::vector<XrefFileUses> byFile(const std::vector<PrintedUse>& uses) {
    std::vector<XrefFileUses> files;
    for (const PrintedUse& use : uses) {
        if (files.empty() || files.back().file != *use.file) files.push_back({*use.file, {}});
        files.back().pages.push_back({use.runPage, use.written});
    }
    return files;
}

}  // namespace

std::vector<XrefEntry> crossReferenceEntries(const NameIndex& index, const LinePages& pages) {
    std::vector<std::pair<std::string, XrefEntry>> keyed;
    for (const IndexedName& name : index.names) {
        std::int32_t declared = pageOfLine(pages, name.declared.file, name.declared.line);
        std::vector<PrintedUse> uses = printedUses(name, pages);
        if (declared == 0 && uses.empty()) continue;
        keyed.emplace_back(upperCase(name.name),
                           XrefEntry{name.name, nameKindText(name.kind), name.declared.file, declared, byFile(uses)});
    }
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first, a.second.declaredPage) < std::tie(b.first, b.second.declaredPage);
    });
    std::vector<XrefEntry> entries;
    entries.reserve(keyed.size());
    for (auto& [key, entry] : keyed) entries.push_back(std::move(entry));
    return entries;
}

}  // namespace hlyd
