#include "printing/line_pages.h"

#include <algorithm>

#include "platform/printer.h"
#include "printing/printing_state.h"

namespace hlyd {

LinePages& linePages() { return printingState().linePages; }

void beginNotingPages(bool noting) {
    LinePages& pages = linePages();
    pages = LinePages{};
    pages.noting = noting;
}

void notePageBegun(std::int32_t printedNumber) {
    LinePages& pages = linePages();
    if (!pages.noting) return;
    pages.printedNumber.push_back(printedNumber);
    if (Printer* printer = currentPrinter())
        printer->nameDestination(pageDestination(static_cast<std::int32_t>(pages.printedNumber.size() - 1)), 0, "", 0);
}

void notePagesOfFile(const std::string& file, std::int32_t recordCount) {
    LinePages& pages = linePages();
    if (!pages.noting) return;
    std::vector<std::int32_t>& records = pages.byFile[file];
    // A file printed twice in one run is found on the pages it was printed on first.
    if (records.empty()) records.assign(static_cast<std::size_t>(std::max(recordCount, 0)) + 1, 0);
    pages.current = &records;
}

void noteLinePage(std::int32_t record) {
    LinePages& pages = linePages();
    if (!pages.current || record < 1 || static_cast<std::size_t>(record) >= pages.current->size()) return;
    std::int32_t& page = (*pages.current)[static_cast<std::size_t>(record)];
    if (page == 0) page = static_cast<std::int32_t>(pages.printedNumber.size() - 1);
}

std::int32_t pageOfLine(const LinePages& pages, const std::string& file, std::int32_t record) {
    auto found = pages.byFile.find(file);
    if (found == pages.byFile.end() || record < 1 || static_cast<std::size_t>(record) >= found->second.size()) return 0;
    return found->second[static_cast<std::size_t>(record)];
}

std::string pageDestination(std::int32_t runPage) { return "page" + std::to_string(runPage); }

}  // namespace hlyd
