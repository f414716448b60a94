#include "models/print_options_model.h"

#include <optional>

#include "base/app_info.h"
#include "base/message_box.h"
#include "models/print_options_checks.h"
#include "models/print_options_fonts.h"
#include "models/print_options_units.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "printing/usable_area.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

constexpr std::int16_t kContinuousPages = 2;
constexpr std::int32_t kNarrowestColumn = 720;

std::string& headingSetting(HlydSettings& s, int section) {
    std::string* fields[kHeadingSections] = {&s.HeadingLeft, &s.HeadingCenter, &s.HeadingRight,
                                             &s.FootingLeft, &s.FootingCenter, &s.FootingRight};
    return *fields[section];
}

// The printer the lengths and fonts are checked against. One that has gone was named to the user
// at start; here it only matters that nothing is checked until a printer is chosen.
std::string printerLine() {
    const PrintState& p = printState();
    if (p.PrinterPresent) return "Printer: " + p.PrinterName;
    return "No printer is in force: margins and fonts are checked against the printer chosen with File/Print Setup.";
}

void fillSettingsTab(PrintOptionsValues& v) {
    const HlydSettings& s = hlydSettings();
    const FormatRecord& f = displayAttributes().Format[kPrint];
    v.chkLineNumbers = s.LineNumbers;
    v.optLineNumberHow = s.LineNumberHow;
    v.txtLineNumberStart = std::to_string(s.LineNumberStart);
    v.txtLineNumberIncrement = std::to_string(s.LineNumberIncrement);
    v.chkPageNumberAsk = s.PageNumberAsk;
    v.chkPageNumberContinuous = s.PageNumberHow == kContinuousPages;
    v.optProcSkip = static_cast<char>(f.ProcSkip);
    v.txtOrphan = std::to_string(f.Orphan);
    v.chkConnectControls = f.ConnectControls != 0;
    v.chkContinueGenerate = f.ContinueGenerate != 0;
    v.chkContinueHonor = f.ContinueHonor != 0;
    v.chkSeparator = f.Separator != 0;
    v.chkSeparatorBold = f.SeparatorBold != 0;
    v.chkIndent = f.Indent != 0;
    v.txtIndentAmount = std::to_string(f.IndentAmount);
    v.txtTabWidth = std::to_string(f.TabWidth);
    v.chkSkipAttributes = f.SkipAttributes != 0;
    v.chkSaveHYInfo = s.SaveHYInfo;
    v.txtSaveHYFile = s.SaveHYFile;
}

void fillLayoutTab(PrintOptionsModel& m) {
    m.margins = pageSettings().Margins;
    m.columns = pageSettings().Columns;
    m.v.txtMargin = {lengthText(m.margins.Top), lengthText(m.margins.Bottom), lengthText(m.margins.Left),
                     lengthText(m.margins.Right)};
    m.v.txtColumns = std::to_string(m.columns.Columns);
    m.v.txtSpacing = lengthText(m.columns.Gutter);
    m.v.chkColumnSeparator = m.columns.Separator;
    m.txtSpacingEnabled = m.columns.Columns >= 2;
    for (int section = 0; section < kHeadingSections; ++section)
        m.v.txtHeading[section] = headingSetting(hlydSettings(), section);
    m.fraColumns = columnsFrameCaption();
    m.fraMargins = marginsFrameCaption();
    if (!sbPageLayoutUpdateColSpecs(m)) m.lblMessage = "Unable to use initial Margins for calculating Column-data'";
    else if (printState().PrinterPresent && m.columns.Width < kNarrowestColumn)
        m.lblMessage = "Unable to calculate initial Column-Width";
}

bool allChecksPass(PrintOptionsModel& m) {
    return sbValidateNumberOfCol(m) && sbPageLayoutValidateColSpecs(m, "SPACING") &&
           sbPageLayoutValidateMargin(m, "TOP") && sbPageLayoutValidateMargin(m, "BOTTOM") &&
           sbPageLayoutValidateMargin(m, "LEFT") && sbPageLayoutValidateMargin(m, "RIGHT") &&
           sbPageLayoutValidateColSpecs(m, "WIDTH") && sbValidateBounds(m) && validateLineNumberStart(m) &&
           validateLineNumberIncrement(m) && validateFormatNumbers(m) && validateHeadingTemplates(m) &&
           validatePrintFonts(m);
}

void applySettingsTab(const PrintOptionsValues& v) {
    HlydSettings& s = hlydSettings();
    FormatRecord& f = displayAttributes().Format[kPrint];
    s.LineNumbers = v.chkLineNumbers;
    s.LineNumberHow = static_cast<std::int16_t>(v.optLineNumberHow);
    s.LineNumberStart = std::stoi(v.txtLineNumberStart);
    s.LineNumberIncrement = std::stoi(v.txtLineNumberIncrement);
    s.PageNumberAsk = v.chkPageNumberAsk;
    s.PageNumberHow = v.chkPageNumberContinuous ? kContinuousPages : 1;
    f.ProcSkip = static_cast<unsigned char>(v.optProcSkip);
    f.Orphan = static_cast<std::int16_t>(std::stoi(v.txtOrphan));
    f.ConnectControls = v.chkConnectControls;
    f.ContinueGenerate = v.chkContinueGenerate;
    f.ContinueHonor = v.chkContinueHonor;
    f.Separator = v.chkSeparator;
    f.SeparatorBold = v.chkSeparatorBold;
    f.Indent = v.chkIndent;
    f.IndentAmount = static_cast<std::int16_t>(std::stoi(v.txtIndentAmount));
    f.TabWidth = static_cast<std::int16_t>(std::stoi(v.txtTabWidth));
    f.SkipAttributes = v.chkSkipAttributes;
    s.SaveHYInfo = v.chkSaveHYInfo;
    s.SaveHYFile = v.txtSaveHYFile;
}

void applyLayoutTab(PrintOptionsModel& m) {
    m.columns.Separator = m.v.chkColumnSeparator;
    pageSettings().Margins = m.margins;
    pageSettings().Columns = m.columns;
    for (int section = 0; section < kHeadingSections; ++section)
        headingSetting(hlydSettings(), section) = m.v.txtHeading[section];
}

// The page of the printer in force follows the new fonts, margins and columns at once. Fonts that
// passed the form's checks give printing a new chance: a font the printer lacked sends the user here.
void applyToPageGeometry() {
    PrintState& state = printState();
    if (!state.PrinterPresent) return;
    state.PrinterValid = true;
    HlydPAValidateFonts(false);
    state.Columns = pageSettings().Columns;
    HlydPASetUsableArea(state.UsableArea, state.DefaultArea, pageSettings().Margins, state.Columns);
}

void saveOptions() {
    writeSettingsBatch([] {
        sbPrintOptionsINISave();
        for (int e = 1; e <= kElementCount; ++e) saveElementAttributes(kPrint, e);
    });
}

}  // namespace

const std::array<const char*, 3>& printOptionsTabs() {
    static const std::array<const char*, 3> tabs = {"Settings", "Layout", "Fonts"};
    return tabs;
}

const char* headingSectionName(int section) {
    static const char* const names[kHeadingSections] = {"Header Left", "Header Center", "Header Right",
                                                        "Footer Left", "Footer Center", "Footer Right"};
    return section >= 0 && section < kHeadingSections ? names[section] : "";
}

void fillPrintOptions(PrintOptionsModel& m) {
    m = PrintOptionsModel{};
    fillSettingsTab(m.v);
    fillLayoutTab(m);
    loadPrintFontRows(m);
    m.lblPrinter = printerLine();
    m.loaded = m.v;
}

bool printOptionsChanged(const PrintOptionsModel& m) { return !(m.v == m.loaded); }

bool cmdOK_Click(PrintOptionsModel& m) {
    m.PrintStatus = kPrintOk;
    m.focus.clear();
    if (!allChecksPass(m)) return false;
    applySettingsTab(m.v);
    applyLayoutTab(m);
    storePrintFontRows(m);
    applyToPageGeometry();
    saveOptions();
    m.loaded = m.v;
    return true;
}

bool Form_QueryUnload(PrintOptionsModel& m) {
    if (!printOptionsChanged(m)) return true;
    MsgAnswer answer = showMessage("Do You Want to Save Your Options?", "Save Options", MsgButtons::YesNoCancel,
                                   MsgIcon::Question);
    if (answer == MsgAnswer::Yes) return cmdOK_Click(m);
    return answer == MsgAnswer::No;
}

void cmdHistoryFile_Click(PrintOptionsModel& m) {
    std::string name, directory;
    sbFileNameFromDir(m.v.txtSaveHYFile, name, directory);
    if (directory.empty()) directory = settingsDirectory() + "/";
    FileDialogRequest request;
    request.title = "Select Halyard Save File";
    request.filter = "AllFile|*.*";
    request.directory = directory;
    request.fileName = directory + "HYHIST.TMR";
    if (std::optional<std::string> chosen = theUi().saveFileDialog(request)) m.v.txtSaveHYFile = *chosen;
}

}  // namespace hlyd
