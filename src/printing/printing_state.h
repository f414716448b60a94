#pragma once
// The printing's part of the Session: the state of the print run and the printer it opened, the
// page headings, the table of contents, the status dialog, the reader's marks, and the views
// the window shows the print dialogs through.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/session.h"
#include "printing/contents.h"
#include "printing/heading_templates.h"
#include "printing/print_dialog.h"
#include "printing/print_options_dialog.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "printing/select_proc.h"

namespace hlyd {

struct PrintingState {
    PrintingState() = default;
    // The printer in force may be the one this run opened: nobody may be left holding it.
    ~PrintingState() {
        if (opened && currentPrinter() == opened.get()) setCurrentPrinter(nullptr);
    }
    PrintingState(const PrintingState&) = delete;
    PrintingState& operator=(const PrintingState&) = delete;

    PrintState print;
    std::unique_ptr<Printer> opened;
    std::unique_ptr<cHeadings> heading = std::make_unique<cHeadings>();
    std::unique_ptr<cHeadings> footing = std::make_unique<cHeadings>();
    std::vector<TocEntry> toc = std::vector<TocEntry>(1);
    PrintStatusModel status;
    std::function<void(const std::string&)> statusView;
    std::function<void(bool)> statusShownView;
    int awaitedDeclaration = -1;  // the procedure whose mark goes where its declaration is printed
    std::string lastDeclared;
    PrintDialogView printDialogView;
    PrintOptionsView printOptionsView;
    SelectProcView selectProcView;
};

inline PrintingState& printingState() { return *detail::current.printing; }

}  // namespace hlyd
