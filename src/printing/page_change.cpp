#include "printing/page_change.h"

#include <array>
#include <cmath>
#include <memory>
#include <optional>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/file_table.h"
#include "files/navigation.h"
#include "platform/printer.h"
#include "platform/ui.h"
#include "printing/heading_fit.h"
#include "printing/line_pages.h"
#include "printing/job_properties.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "printing/printer_errors.h"
#include "printing/printer_fonts.h"
#include "printing/printing_state.h"
#include "printing/reader_marks.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::unique_ptr<cHeadings>& heading() { return printingState().heading; }
std::unique_ptr<cHeadings>& footing() { return printingState().footing; }

constexpr std::int16_t kContinuousNumbering = 2;

AttributeRecord& headingElement() { return displayAttributes().Elements[kElemHeadersFooters].slot[kPrint]; }

// A stop the user confirmed ends the run where a page has just been finished.
bool stopAskedLandsHere() {
    PrintState& p = printState();
    if (!p.StopAsked) return false;
    p.PrintStatus = kPrintStopped;
    p.Stop = StopKind::UserStop;
    return true;
}

// Ends the page in progress: its footing, the counters, and the page range's verdict on it.
// False when the range is past and the run is over.
bool endPage(Printer& printer, std::int16_t kind) {
    PrintState& p = printState();
    EmitFooting();
    ++p.PageNumber;
    if (kind != kPageProcContents) ++p.PrintedPageNumber;
    if (stopAskedLandsHere()) return false;
    if (p.PageRange && p.PageNumber > p.FirstPage && p.PageNumber > p.LastPage) {
        p.PrintStatus = kPrintStopped;
        p.Stop = StopKind::RangeEnd;
        return false;
    }
    // Pages before the range are made, headed and dropped, so that the page numbers come out right.
    if (p.PageRange && p.PageNumber <= p.FirstPage) printerStep([&] { printer.killDoc(); });
    else printerStep([&] { printer.newPage(); });
    return true;
}

void startDocument(Printer& printer, std::int16_t kind) {
    PrintState& p = printState();
    p.PageNumber = 1;
    bool continuous = hlydSettings().PageNumberHow == kContinuousNumbering;
    if (!continuous) p.PrintedPageNumber = 1;
    if (continuous && kind != kPageProcContents) {
        ++p.PrintedPageNumber;
        // Printed on both sides, each module starts on a right-hand page.
        if (printsBothSides(printer) && p.PrintedPageNumber % 2 == 0) ++p.PrintedPageNumber;
    }
    p.PrintedPageNumber = startPageNumber(p.PrintedPageNumber);
}

void checkPageCount(Printer& printer) {
    PrintState& p = printState();
    if (!p.PrinterValid || !hlydSettings().PrintContinuous) return;
    if (p.PageNumber == printer.page() || p.PagesBeforeToc + 1 == printer.page()) return;
    if (!theDebug().DontTrapErrors) return;
    theLog().LogData(" -- Assertion failure\r\nInternal PageNumber <> Printer PageNumber\r\nInternal PageNumber = " +
                     std::to_string(p.PageNumber) + "\r\nPrinter's PageNumber = " + std::to_string(printer.page()));
    p.PrintStatus = kPrintAssertFailed;
    raiseInternal("EmitHeading");
}

std::string statusText(Printer& printer, std::int16_t kind, std::int32_t contentsPage) {
    PrintState& p = printState();
    std::string text = kind == kPageProcContents ? "Now Printing Proc Contents Page " + std::to_string(contentsPage)
                                                 : "Now Printing Page " + std::to_string(p.PageNumber);
    const FileTableModule& files = fileTable();
    int which = (kind == kPageCode || kind == kPageProcContents) ? files.wCurrentFile : 1;
    std::string name = which >= 1 && which <= files.oFile.Count() ? files.oFile.Item(which).FileName : std::string();
    return text + "\r\nof '" + name + "'\r\non " + printer.deviceName();
}

// Half a line parts the heading and the footing from the code.
float bandGap(const cHeadings& band) {
    return band.TotalLines > 0 ? std::nearbyint(static_cast<float>(headingElement().Height) / 2) : 0;
}

// The heading's first line stands at the top margin and the footing's last line ends at the bottom
// margin, each half a line clear of the code. The margins already keep them off the paper's edge;
// a blank line above the heading, two below it and two more under the footing cost a real module a
// page in seven, more than any plain text printer spends on its page header.
void reserveHeadingRoom(Printer& printer) {
    PrintState& p = printState();
    float h = std::nearbyint(printer.textHeight("X"));
    p.UsableArea.Top = p.SavedTop;
    p.UsableArea.Bottom = p.SavedBottom - h * static_cast<float>(footing()->TotalLines) - bandGap(*footing());
}

void printHeadingLines(Printer& printer, float& topPos) {
    PrintState& p = printState();
    std::int32_t height = headingElement().Height;
    printer.setCurrentY(p.UsableArea.Top);
    topPos = p.UsableArea.Top;
    std::string optional = p.OptionalLine;
    optional.erase(optional.find_last_not_of(' ') + 1);
    if (!optional.empty()) {
        printer.setCurrentX(p.UsableArea.Left);
        printerStep([&] { printer.print(optional); });
        topPos += static_cast<float>(height);
    }
    HeaderFooterOutput(*heading(), topPos);
    topPos += bandGap(*heading());
}

void headPage(Printer& printer, float& topPos, const std::string& procText, std::int16_t kind,
              std::int32_t contentsPage) {
    PrintState& p = printState();
    bool documentStarts = p.PageNumber == 0;
    if (!documentStarts) {
        if (!endPage(printer, kind)) return;
    } else {
        if (stopAskedLandsHere()) return;
        startDocument(printer, kind);
    }
    heading()->UseRoman = footing()->UseRoman = false;
    heading()->PrintPageNumber = footing()->PrintPageNumber = p.PrintedPageNumber;
    printer.setPageLabel(kind == kPageProcContents ? contentsPage : p.PrintedPageNumber, kind);
    printerStep([&] { printer.print(""); });
    if (documentStarts) markDocumentStart(printer, kind);
    if (kind == kPageCode || kind == kPageProject) notePageBegun(p.PrintedPageNumber);
    p.FootingPrinted = false;
    HlydPASetAttributes(headingElement());
    checkPageCount(printer);
    // Contents pages count from one by themselves, in Roman numerals.
    if (kind == kPageProcContents) {
        for (cHeadings* h : {heading().get(), footing().get()}) {
            h->UseRoman = true;
            h->IsContents = true;
            h->PrintPageNumber = contentsPage;
        }
    }
    showPrintStatus(statusText(printer, kind, contentsPage));
    HlydPASetAttributes(headingElement());
    if (!p.PrinterValid) {
        p.PrintStatus = kPrintStopped;
        return;
    }
    heading()->csProcHeading = procText;
    if (p.PageNumber == 1) {
        HeadingsSetup();
        reserveHeadingRoom(printer);
    }
    printHeadingLines(printer, topPos);
    theUi().processEvents();
}

}  // namespace

cHeadings& pageHeading() { return *heading(); }
cHeadings& pageFooting() { return *footing(); }

void HlydPHInit(bool isContents) {
    heading() = std::make_unique<cHeadings>();
    footing() = std::make_unique<cHeadings>();
    heading()->IsContents = footing()->IsContents = isContents;
}

void HlydPHEmitForCode(float& topPos, std::int32_t record) {
    heading()->clCurrentRecord = record;
    std::string procText;
    if (hlydSettings().ProcName) {
        std::int32_t which = 0;
        HlydPCGetAssociatedProc(record, which);
        const std::vector<ProcEntry>& procs = yProc();
        if (which >= 0 && which < static_cast<std::int32_t>(procs.size())) procText = procs[which].Name;
    }
    EmitHeading(topPos, procText, kPageCode, 0);
}

void HlydPHEmitForProject(float& topPos) { EmitHeading(topPos, "PROJECT FILE", kPageProject, 0); }

void HlydPHEmitProcContents(float& topPos, std::int32_t& contentsPages, const std::string& title) {
    ++contentsPages;
    std::string text = title;
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (!text.empty() && text.back() != ' ') text += ' ';
    EmitHeading(topPos, text + "CONTENTS", kPageProcContents, contentsPages);
}

// A new document gets new heading objects; later pages keep the ones its first page filled.
void HlydPHEmitProjectProcContents(float& topPos) {
    if (printState().PageNumber == 0) HlydPHInit(true);
    heading()->IsContents = footing()->IsContents = true;
    EmitHeading(topPos, "PROJECT CONTENTS", kPageProjectContents, 0);
}

void EmitHeading(float& topPos, const std::string& procText, std::int16_t kind, std::int32_t contentsPage) {
    PrintState& p = printState();
    topPos = 0;
    p.PageKind = kind;
    Printer* printer = currentPrinter();
    if (!printer) p.PrintStatus = kPrintStopped;
    else headPage(*printer, topPos, procText, kind, contentsPage);
    // The status dialog's Cancel lands here, at the page change, and drops the document.
    if (navigation().runState == kRunCancelled) {
        p.PrintStatus = kPrintStopped;
        p.Stop = StopKind::DropsJob;
        if (printer) printer->killDoc();
        p.DocumentDropped = true;
        navigation().runState = 0;
    }
}

void EmitFooting() {
    PrintState& p = printState();
    HlydPASetAttributes(headingElement());
    if (!p.PrinterValid) {
        p.PrintStatus = kPrintStopped;
        return;
    }
    float y = p.UsableArea.Bottom + bandGap(*footing());
    HeaderFooterOutput(*footing(), y);
    p.FootingPrinted = true;
}

namespace {

// The parts of one heading line, left, centre and right, with their dynamic texts expanded for
// this page; a section without that line is nullptr.
std::array<cHeadingPart*, 3> expandedLine(cHeadings& headings, int line) {
    std::array<cHeadingPart*, 3> parts{};
    for (int section = 1; section <= 3; ++section) {
        cHeadingPart* part = headings.FindItem(headingKey(line, section));
        if (part && part->bIsDynamic) {
            part->clCurrentRecord = headings.clCurrentRecord;
            part->ProcText = headings.csProcHeading;
            part->HeadingText(std::vector<std::string>(part->DynamicTag));
        }
        parts[static_cast<std::size_t>(section - 1)] = part;
    }
    return parts;
}

// Where each text of the line goes: the centre kept clear of the other two by a blank's width.
std::array<PlacedText, 3> placedLine(Printer& printer, const std::array<cHeadingPart*, 3>& parts) {
    HeadingLine line;
    PlacedText* placed[3] = {&line.left, &line.centre, &line.right};
    for (std::size_t i = 0; i < 3; ++i)
        if (parts[i]) *placed[i] = {parts[i]->XPos(), parts[i]->HeadingText()};
    line.centreMoves = parts[1] && parts[1]->bIsDynamic;
    line.rightMoves = parts[2] && parts[2]->bIsDynamic;
    fitHeadingLine(printer, printState().UsableArea, line);
    return {line.left, line.centre, line.right};
}

}  // namespace

void HeaderFooterOutput(cHeadings& headings, float& y) {
    Printer* printer = currentPrinter();
    if (!printer || headings.TotalLines <= 0) return;
    float height = static_cast<float>(headingElement().Height);
    for (int line = 1; line <= headings.TotalLines; ++line) {
        std::array<cHeadingPart*, 3> parts = expandedLine(headings, line);
        std::array<PlacedText, 3> placed = placedLine(*printer, parts);
        for (std::size_t i = 0; i < 3; ++i) {
            if (!parts[i]) continue;
            printer->setCurrentY(y);
            printer->setCurrentX(placed[i].x);
            printerStep([&] { printer->print(placed[i].text); });
        }
        y += height;
    }
    if (theDebug().TraceApplication) {
        cHeadingPart* first = headings.FindItem("11");
        theLog().LogData("Print Heading(" + (first ? first->HeadingText() : std::string()) +
                         ")\r\nyGlobal.PageNumber=" + std::to_string(printState().PageNumber) +
                         " printer.Page =" + std::to_string(printer->page()));
    }
}

void HeadingsSetup() {
    const HlydSettings& s = hlydSettings();
    heading()->Clear();
    footing()->Clear();
    HeadingExtract(s.HeadingLeft, 1, *heading());
    HeadingExtract(s.HeadingCenter, 2, *heading());
    HeadingExtract(s.HeadingRight, 3, *heading());
    HeadingExtract(s.FootingLeft, 1, *footing());
    HeadingExtract(s.FootingCenter, 2, *footing());
    HeadingExtract(s.FootingRight, 3, *footing());
}

std::int32_t startPageNumber(std::int32_t printed) {
    if (!hlydSettings().PageNumberAsk) return printed;
    std::string shown = printed == 0 ? "1" : std::to_string(printed);
    std::optional<std::string> answer =
            theUi().inputBox({"Enter starting page number for module \r\n" + std::to_string(fileTable().wCurrentFile),
                              "Starting Page Number", shown});
    if (!answer || !isNumeric(*answer)) return printed;
    // The Print dialog takes page numbers of up to nine digits; an answer beyond them would
    // overflow the page counter as the pages go on, and counts as no number at all.
    constexpr double kLargestPage = 999999999;
    double value = std::strtod(answer->c_str(), nullptr);
    if (!(std::fabs(value) <= kLargestPage)) return printed;
    std::int32_t page = clngOf(value, "EmitHeading");
    return printed == 0 ? page - 1 : page;
}

}  // namespace hlyd
