#pragma once
// The printing's part of the Session: the state of the print run and the printer it opened, the
// page headings, the table of contents, the status dialog and the reader's marks.
#include <memory>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/session.h"
#include "printing/contents.h"
#include "printing/heading_templates.h"
#include "printing/line_pages.h"
#include "printing/print_state.h"
#include "printing/print_status.h"

namespace hlyd {

struct PrintingState {
    PrintingState() = default;
    PrintingState(const PrintingState&) = delete;
    PrintingState& operator=(const PrintingState&) = delete;

    PrintState print;
    std::unique_ptr<Printer> opened;
    std::unique_ptr<cHeadings> heading = std::make_unique<cHeadings>();
    std::unique_ptr<cHeadings> footing = std::make_unique<cHeadings>();
    std::vector<TocEntry> toc = std::vector<TocEntry>(1);
    PrintStatusModel status;
    int awaitedDeclaration = -1;  // the procedure whose mark goes where its declaration is printed
    std::string lastDeclared;
    LinePages linePages;
};

inline PrintingState& printingState() { return *detail::current.printing; }

}  // namespace hlyd
