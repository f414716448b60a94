#include "printing/heading_templates.h"

#include <algorithm>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/error_tail.h"
#include "base/hlyd_error.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "platform/printer.h"
#include "printing/heading_macros.h"
#include "printing/print_state.h"
#include "settings/attributes.h"

namespace hlyd {

namespace {

constexpr int kDuplicateKey = 457;

std::string leftTrimmed(const std::string& s) {
    std::size_t b = s.find_first_not_of(' ');
    return b == std::string::npos ? std::string() : s.substr(b);
}

// A centre or right text as wide as the area or wider: as many characters as the area holds
// of the element's widest letter, less room for the "...".
std::string cutToArea(const std::string& text, float areaWidth) {
    std::int32_t letter = displayAttributes().Elements[kElemHeadersFooters].slot[kPrint].XWidth;
    if (letter == 0) raiseRuntime(11);
    std::int32_t kept = clngOf(areaWidth, "cHeadingPart::XPos") / letter - 3;
    return text.substr(0, static_cast<std::size_t>(std::max(kept, 0))) + "...";
}

}  // namespace

void cHeadingPart::HeadingText(const std::vector<std::string>& tokens) {
    TraceScope trace(theDebug().TraceClasses, "cHeadingPart::HeadingText");
    withErrorTail("cHeadingPart::HeadingText", __LINE__, [&] { expand(tokens); });
}

void cHeadingPart::expand(const std::vector<std::string>& tokens) {
    std::vector<std::string> given = tokens;  // the tokens may be our own DynamicTag
    DynamicTag = given;
    text_.clear();
    HeadingMacroContext context{cbPrintAsRoman, PrintPage, ProcText, clCurrentRecord};
    for (const std::string& raw : given) {
        std::string token = trimSpaces(raw);
        if (token.empty()) continue;
        HeadingPiece piece = expandHeadingToken(token, context);
        if (piece.dynamic) bIsDynamic = true;
        text_ += leftTrimmed(piece.text);
    }
}

void cHeadingPart::XPos(std::int16_t section) {
    TraceScope trace(theDebug().TraceClasses, "cHeadingPart::XPos");
    x_ = 0;
    if (text_.empty()) return;
    Printer* printer = currentPrinter();
    if (!printer) raiseRuntime(482, "cHeadingPart::XPos");
    const AreaRecord& area = printState().UsableArea;
    float width = printer->textWidth(text_);
    bool fits = width < area.Width;
    switch (section) {
        case 1: x_ = area.Left; break;
        case 2:
            if (fits) x_ = (area.Width - width) / 2 + area.Left;
            else text_ = cutToArea(text_, area.Width);
            break;
        case 3:
            if (fits) x_ = area.Width - width + area.Left;
            else text_ = cutToArea(text_, area.Width), x_ = area.Left;
            break;
        default: break;
    }
}

void cHeadings::Add(std::int16_t anLine, std::int16_t anSection, const std::vector<std::string>& asDescription) {
    TraceScope trace(theDebug().TraceClasses, "cHeadings::Add");
    withErrorTail("cHeadings::Add", __LINE__, [&] {
        std::string key = headingKey(anLine, anSection);
        if (parts_.count(key)) raiseRuntime(kDuplicateKey);
        cHeadingPart part;
        part.IsContent = IsContents;
        part.clCurrentRecord = clCurrentRecord;
        part.ProcText = csProcHeading;
        part.cbPrintAsRoman = UseRoman;
        part.PrintPage = PrintPageNumber;
        part.HeadingText(asDescription);
        part.XPos(anSection);
        parts_.emplace(key, std::move(part));
    });
}

cHeadingPart* cHeadings::FindItem(const std::string& key) {
    auto found = parts_.find(key);
    if (found == parts_.end()) return nullptr;
    cHeadingPart& part = found->second;
    part.cbPrintAsRoman = UseRoman;
    part.PrintPage = PrintPageNumber;
    return &part;
}

cHeadingPart& cHeadings::Item(const std::string& key) {
    TraceScope trace(theDebug().TraceClasses, "cHeadings::Item");
    cHeadingPart* part = FindItem(key);
    if (!part) raiseRuntime(9, "cHeadings::Item");
    return *part;
}

std::string headingKey(int line, int section) { return std::to_string(line) + std::to_string(section); }

void HeadingExtract(const std::string& sectionText, std::int16_t section, cHeadings& headings) {
    TraceScope trace(theDebug().TraceApplication, "HeadingExtract");
    std::vector<std::string> lines = splitOn(sectionText, '|');
    std::int16_t count = int16Of(static_cast<std::int64_t>(lines.size()), "HeadingExtract");
    if (count > headings.TotalLines) headings.TotalLines = count;
    for (std::int16_t line = 1; line <= count; ++line) headings.Add(line, section, splitOn(lines[line - 1], ';'));
}

}  // namespace hlyd
