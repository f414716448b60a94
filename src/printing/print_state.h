#pragma once
// The printing subsystem's state for one program run: the printer's standing, the page geometry
// in force, the page counters of the document being printed and the choices of the request.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "display/token_layout.h"
#include "platform/printer.h"
#include "settings/page_settings.h"

namespace hlyd {

// PrintStatus: what stops an emitter.
constexpr std::int32_t kPrintOk = 0;
constexpr std::int32_t kPrintMarginsOutside = 4;  // the margins do not fit the printer
constexpr std::int32_t kPrintStopped = 8;         // cancelled, or stopped at a printer error
constexpr std::int32_t kPrintAssertFailed = -6;   // page geometry went wrong

// What a stop (PrintStatus 8) does to the job: Cancel and printer errors drop it; the end of a
// page range and a stop the user confirmed keep the pages finished before it.
enum class StopKind { DropsJob, RangeEnd, UserStop };

// AreaError: why the usable area was refused.
constexpr std::int16_t kAreaOk = 0;
constexpr std::int16_t kAreaTooNarrow = 1;
constexpr std::int16_t kAreaTooShort = 2;

// The kinds of page.
constexpr std::int16_t kPageCode = 1;
constexpr std::int16_t kPageProject = 2;
constexpr std::int16_t kPageProcContents = 3;
constexpr std::int16_t kPageProjectContents = 4;

// The emitter's running position on the page, in twips.
struct wPos {
    float BottomLimit = 0;
    float SpareHeight = 0;
    float LeftPos = 0;
    float RightPos = 0;
    float TopPos = 0;
    float SpareWidth = 0;
    std::int32_t FirstLinePage = 0;  // the printed page on which the last record's first line stands
};

// Where the current column stands. XColumn is measured in usable-area coordinates; XOffset turns
// it into a printer X.
struct ColumnPosition {
    std::int16_t ColumnNumber = 1;
    float LeftMostX = 0;
    float XColumn = 0;
    float XOffset = 0;
    float TopMostY = 0;
};

struct PrintState {
    // The printer's standing.
    std::string PrinterName;  // empty when there is none
    bool PrinterPresent = false;
    bool PrinterValid = false;
    bool NoDefaultPrinter = false;
    bool FontObjectSaved = false;
    std::int32_t PrintStatus = kPrintOk;
    StopKind Stop = StopKind::DropsJob;  // of a PrintStatus 8
    bool StopAsked = false;              // the user confirmed a stop; it lands at the page's end
    std::int16_t AreaError = kAreaOk;

    // Page geometry.
    AreaRecord DefaultArea;  // the printer's own printable area
    AreaRecord UsableArea;   // the area in force
    float SavedTop = 0;      // the area's limits as the geometry set them, before headings
    float SavedBottom = 0;
    ColumnSpec Columns;  // the column layout in force
    ColumnPosition Column;
    float LineNumberWidth = 0;  // the width of the line-number column

    // The document being printed.
    std::int32_t PageNumber = 0;         // yGlobal.PageNumber: physical pages; 0 before the first
    std::int32_t PrintedPageNumber = 0;  // the number shown
    std::int16_t PageKind = kPageCode;
    bool PageRange = false;
    std::int32_t FirstPage = 0;
    std::int32_t LastPage = 0;
    std::int32_t PagesBeforeToc = 0;  // the page count saved before the table of contents
    std::string StatusText;           // what the print status dialog shows
    bool FootingPrinted = false;      // the page in progress has its footing already
    bool DocumentDropped = false;     // a Cancel killed the document; nothing more goes into it

    // The request in force.
    bool Code = true;     // print the code
    bool FormDef = true;  // print the form definition
    std::int32_t CurrentLineNumber = 0;
    bool PrintingInProgress = false;
    bool NoHistory = false;
    std::string OptionalLine;  // the optional heading line of the print dialog
    bool ContentsOnly = false;
    // The procedures chosen for printing, by position in yProc; none chosen prints the whole file.
    std::vector<std::int16_t> SelectedProcs;
    bool ProcsSelected = false;
};

PrintState& printState();
// Also lets go of the printer opened by the printing module (see installOpenedPrinter).
void resetPrintState();

// Makes the printer current and keeps it alive until another replaces it or the state is reset.
// nullptr lets go of it; a printer that someone else installed stays in force.
void installOpenedPrinter(std::unique_ptr<Printer> printer);

}  // namespace hlyd
