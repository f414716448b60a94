#include "models/print_options_checks.h"

#include <array>
#include <cctype>
#include <cmath>
#include <optional>

#include "base/c_log.h"
#include "models/print_options_units.h"
#include "printing/print_state.h"
#include "printing/printer_info.h"
#include "printing/usable_area.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// Larger lengths do not fit the settings' 16-bit fields of the older form.
constexpr float kLongestLength = 32765;
constexpr std::int32_t kNarrowestGutter = 90;
constexpr std::int32_t kNarrowestColumn = 720;
constexpr int kMostColumns = 16;
constexpr std::int16_t kNoPrinterArea = -1;

bool refuse(PrintOptionsModel& m, const std::string& field, const std::string& text) {
    m.lblMessage = text;
    m.focus = field;
    m.PrintStatus = kPrintMarginsOutside;
    return false;
}

bool accept(PrintOptionsModel& m) {
    m.lblMessage.clear();
    return true;
}

std::int32_t whole(float value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

// A whole number from `low` to `high`, or nothing.
std::optional<std::int32_t> wholeBetween(const std::string& text, std::int32_t low, std::int32_t high) {
    std::optional<float> value = numberInField(text);
    if (!value || *value != std::floor(*value) || *value < static_cast<float>(low) || *value > static_cast<float>(high))
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

// The margins and columns tried on the printer in force without touching the geometry in force:
// the area error, or kNoPrinterArea when there is no printer to try them on.
std::int16_t tryOnScratchArea(const PrintOptionsModel& m, ColumnSpec& columns) {
    PrintState& state = printState();
    if (!state.PrinterPresent) return kNoPrinterArea;
    PrintState kept = state;
    state.PrintStatus = kPrintOk;
    state.AreaError = kAreaOk;
    AreaRecord scratch;
    HlydPASetUsableArea(scratch, state.DefaultArea, m.margins, columns);
    std::int16_t error = state.PrintStatus == kPrintMarginsOutside ? state.AreaError : kAreaOk;
    state.PrintStatus = kept.PrintStatus;
    state.AreaError = kept.AreaError;
    state.SavedTop = kept.SavedTop;
    state.SavedBottom = kept.SavedBottom;
    return error;
}

struct MarginField {
    const char* which;
    const char* caption;
    int index;
    bool horizontal;
};

constexpr std::array<MarginField, 4> kMarginFields = {{
        {"TOP", "Top", kMarginTop, false},
        {"BOTTOM", "Bottom", kMarginBottom, false},
        {"LEFT", "Left", kMarginLeft, true},
        {"RIGHT", "Right", kMarginRight, true},
}};

std::int32_t& marginOf(MarginRecord& margins, int index) {
    switch (index) {
        case kMarginTop: return margins.Top;
        case kMarginBottom: return margins.Bottom;
        case kMarginLeft: return margins.Left;
        default: return margins.Right;
    }
}

// The printer's unprintable strip in whole units of the dialog.
std::int32_t smallestMargin(bool horizontal) {
    cPrinterInfo info;
    if (hlydSettings().MetricUnits) return horizontal ? info.XOffsetMM() : info.YOffsetMM();
    return horizontal ? info.XOffsetIN() : info.YOffsetIN();
}

constexpr const char* kKnownMacros[] = {"@date",     "@time",    "@page",     "@filedate", "@filetime",
                                        "@user",     "@company", "@filename", "@filepath", "@vbname",
                                        "@procname", "@project", "@path",     "@ask"};

bool knownMacro(const std::string& lower) {
    if (lower.rfind("@path<", 0) == 0) return true;
    for (const char* macro : kKnownMacros)
        if (lower == macro) return true;
    return false;
}

std::string lowerAscii(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string trimmed(const std::string& text) {
    auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The first token that looks like a macro and is none, empty when there is none.
std::string unknownField(const std::string& section) {
    std::string token;
    auto check = [&token]() {
        std::string t = trimmed(token);
        token.clear();
        return (!t.empty() && t[0] == '@' && !knownMacro(lowerAscii(t))) ? t : std::string();
    };
    for (char c : section) {
        if (c != ';' && c != '|') {
            token += c;
            continue;
        }
        if (std::string bad = check(); !bad.empty()) return bad;
    }
    return check();
}

}  // namespace

bool sbValidateNumberOfCol(PrintOptionsModel& m) {
    if (!numberInField(m.v.txtColumns)) return refuse(m, "txtColumns", "Number of Columns contains an invalid value.");
    std::optional<std::int32_t> count = wholeBetween(m.v.txtColumns, 1, kMostColumns);
    if (!count) return refuse(m, "txtColumns", "Invalid number of columns");
    m.columns.Columns = static_cast<std::int16_t>(*count);
    m.txtSpacingEnabled = m.columns.Columns >= 2;
    accept(m);
    sbPageLayoutUpdateColSpecs(m);
    return true;
}

bool sbPageLayoutValidateColSpecs(PrintOptionsModel& m, const std::string& which) {
    bool spacing = which == "SPACING";
    if (spacing && !m.txtSpacingEnabled) return true;
    // Without a printer no width was computed: the page computes it once there is one.
    if (!spacing && !printState().PrinterPresent) return true;
    const std::string& text = spacing ? m.v.txtSpacing : m.v.txtWidth;
    std::string field = spacing ? "txtSpacing" : "txtWidth";
    std::optional<float> twips = fieldTwips(text);
    if (!twips || std::fabs(*twips) > kLongestLength)
        return refuse(m, field, std::string(spacing ? "Spacing" : "Width") + " contains an invalid value.");
    std::int32_t value = whole(*twips);
    if (spacing && value < kNarrowestGutter) return refuse(m, field, "Column Spacing too small.");
    if (!spacing && value < kNarrowestColumn) return refuse(m, field, "Column Width too small.");
    (spacing ? m.columns.Gutter : m.columns.Width) = value;
    accept(m);
    // The gutters take their share of the width: the columns are narrower or wider now.
    if (spacing) sbPageLayoutUpdateColSpecs(m);
    return true;
}

bool sbPageLayoutValidateMargin(PrintOptionsModel& m, const std::string& which) {
    for (const MarginField& f : kMarginFields) {
        if (which != f.which) continue;
        std::string field = "txtMargin" + std::to_string(f.index);
        std::int32_t smallest = smallestMargin(f.horizontal);
        theLog().LogData(std::string("Which=") + which + " MinMargin=" + std::to_string(smallest));
        std::optional<float> twips = fieldTwips(m.v.txtMargin[f.index]);
        std::string invalid = std::string(f.caption) + " contains an invalid value.";
        // Out of range first: a number of that size has no whole value to compare. A margin below
        // nothing would still round to the printer's strip of 0 inches: it is refused as it stands.
        if (!twips || *twips < 0 || *twips > kLongestLength) return refuse(m, field, invalid);
        if (whole(*numberInField(m.v.txtMargin[f.index])) < smallest) return refuse(m, field, invalid);
        marginOf(m.margins, f.index) = whole(*twips);
        accept(m);
        sbPageLayoutUpdateColSpecs(m);
        return true;
    }
    return true;
}

bool sbValidateBounds(PrintOptionsModel& m) {
    ColumnSpec columns = m.columns;
    std::int16_t error = tryOnScratchArea(m, columns);
    if (error == kNoPrinterArea) return true;
    if (error == kAreaOk) {
        m.columns.Width = columns.Width;
        return accept(m);
    }
    if (error == kAreaTooNarrow) return refuse(m, "txtMargin2", "Left/Right Margins too large.");
    return refuse(m, "txtMargin0", "Top/Bottom Margins too large.");
}

bool sbPageLayoutUpdateColSpecs(PrintOptionsModel& m) {
    ColumnSpec columns = m.columns;
    std::int16_t error = tryOnScratchArea(m, columns);
    if (error == kAreaOk) m.columns.Width = columns.Width;
    m.v.txtWidth = lengthText(m.columns.Width);
    return error != kAreaTooNarrow && error != kAreaTooShort;
}

bool acceptsLineNumberKey(char key) {
    constexpr char kBackspace = 8, kTab = 9, kReturn = 13, kDelete = 127;
    return std::isdigit(static_cast<unsigned char>(key)) != 0 || key == kBackspace || key == kTab || key == kReturn ||
           key == kDelete;
}

bool validateLineNumberIncrement(PrintOptionsModel& m) {
    if (!wholeBetween(m.v.txtLineNumberIncrement, 1, 100))
        return refuse(m, "txtLineNumberIncrement", "Increment must be between 1 and 100");
    return accept(m);
}

bool validateLineNumberStart(PrintOptionsModel& m) {
    if (!wholeBetween(m.v.txtLineNumberStart, 1, 1000))
        return refuse(m, "txtLineNumberStart", "Starting line number must be between 1 and 1000");
    return accept(m);
}

bool validateFormatNumbers(PrintOptionsModel& m) {
    if (!wholeBetween(m.v.txtOrphan, 1, 10)) return refuse(m, "txtOrphan", "Orphan lines must be between 1 and 10");
    if (!wholeBetween(m.v.txtIndentAmount, 0, 16))
        return refuse(m, "txtIndentAmount", "Indent amount must be between 0 and 16");
    if (!wholeBetween(m.v.txtTabWidth, 1, 16)) return refuse(m, "txtTabWidth", "Tab width must be between 1 and 16");
    return accept(m);
}

bool validateHeadingTemplates(PrintOptionsModel& m) {
    for (int section = 0; section < kHeadingSections; ++section) {
        std::string bad = unknownField(m.v.txtHeading[section]);
        if (bad.empty()) continue;
        // Refused rather than printed as it stands: a mistyped macro would only show on paper.
        return refuse(m, "txtHeading" + std::to_string(section),
                      std::string(headingSectionName(section)) + " has an unknown field " + bad +
                              ". Enclose text to be printed as it stands in < >.");
    }
    return accept(m);
}

}  // namespace hlyd
