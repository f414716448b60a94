#pragma once
// The print options (frmPrintOptions) as a plain model: the values of its three tabs, loaded from
// the settings, and what OK does with them. The window's form binds to it; the tests drive it.
#include <array>
#include <cstdint>
#include <string>

#include "settings/attributes.h"
#include "settings/page_settings.h"

namespace hlyd {

// txtMargin, in this order.
constexpr int kMarginTop = 0;
constexpr int kMarginBottom = 1;
constexpr int kMarginLeft = 2;
constexpr int kMarginRight = 3;

// txtHeading, in this order: the page header's left, centre and right, then the footer's.
constexpr int kHeadingSections = 6;

// One element's print font and colours on the Fonts tab.
struct PrintFontRow {
    std::string Name;
    double Size = 12;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    std::uint32_t ForeColor = 0;
    std::uint32_t BackColor = 0;
    bool operator==(const PrintFontRow&) const = default;
};

// Everything the user can change; a copy taken when the form is filled tells whether anything was.
struct PrintOptionsValues {
    // Settings
    bool chkLineNumbers = false;
    int optLineNumberHow = 2;  // 1 by procedure, 2 by module, 3 continuous
    std::string txtLineNumberStart;
    std::string txtLineNumberIncrement;
    bool chkPageNumberAsk = false;
    bool chkPageNumberContinuous = false;
    char optProcSkip = 'N';  // "P" new page, "N" neither, "C" new column
    std::string txtOrphan;
    bool chkConnectControls = true;
    bool chkContinueGenerate = true;
    bool chkContinueHonor = true;
    bool chkSeparator = true;
    bool chkSeparatorBold = true;
    bool chkIndent = true;
    std::string txtIndentAmount;
    std::string txtTabWidth;
    bool chkSkipAttributes = false;
    bool chkSaveHYInfo = false;
    std::string txtSaveHYFile;
    // Layout
    std::array<std::string, 4> txtMargin;
    std::string txtColumns;
    std::string txtSpacing;
    std::string txtWidth;
    bool chkColumnSeparator = true;
    std::array<std::string, kHeadingSections> txtHeading;
    // Fonts, elements 1 to 8
    std::array<PrintFontRow, kElementCount + 1> fonts;
    bool operator==(const PrintOptionsValues&) const = default;
};

struct PrintOptionsModel {
    PrintOptionsValues v;
    PrintOptionsValues loaded;  // as the form was filled
    // The working copies of the page geometry; the settings get them on OK only.
    MarginRecord margins;
    ColumnSpec columns;
    bool txtSpacingEnabled = true;  // one column has no gutter
    std::string fraColumns;
    std::string fraMargins;
    std::string lblPrinter;  // the printer the lengths are checked against, or why they are not
    std::string lblMessage;
    std::string focus;        // the field a refusal leaves the focus in
    int focusedSection = -1;  // the header or footer section that has the focus, -1 none
    std::size_t cursor = 0;   // the insertion point in that section
    std::int32_t PrintStatus = 0;
};

// "Settings", "Layout", "Fonts".
const std::array<const char*, 3>& printOptionsTabs();
// "Header Left" ... "Footer Right", for the sections of txtHeading.
const char* headingSectionName(int section);

// The form as the settings and the printer in force have it.
void fillPrintOptions(PrintOptionsModel& m);

bool printOptionsChanged(const PrintOptionsModel& m);

// Runs every check in the order of the form; the first that fails leaves its message and the
// focus, and the dialog stays open (false). Otherwise the page geometry takes the options and the
// settings are written.
bool cmdOK_Click(PrintOptionsModel& m);

// Closing the form otherwise than by OK or Cancel: with changes the user is asked whether to save
// them. False keeps the form open.
bool Form_QueryUnload(PrintOptionsModel& m);

// The history file button: the file dialog, and the chosen name into txtSaveHYFile.
void cmdHistoryFile_Click(PrintOptionsModel& m);

}  // namespace hlyd
