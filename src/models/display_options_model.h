#pragma once
// The Display Options dialog (frmDisplayOptions) as a plain model: its controls with the values
// the records hold, loaded when the dialog opens and written back only when the user accepts.
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "settings/attributes.h"

namespace hlyd {

// cboExtension: the three lists of file extensions.
constexpr int kExtProject = 0;
constexpr int kExtForms = 1;
constexpr int kExtCode = 2;

// optView, in the order of its buttons.
constexpr int kShowFormDefOnly = 0;
constexpr int kShowCodeOnly = 1;
constexpr int kShowBoth = 2;

// optAutoDetect.
constexpr int kDetectAuto = 0;
constexpr int kDetectManual = 1;

struct DisplayOptionsModel {
    bool chkShowOpenDialog = true;
    std::string txtDefaultFileLoc;
    std::array<std::string, 2> txtUser{};  // name, company
    int optView = kShowBoth;
    bool chkSkipAttributes = false;
    bool chkGenerateIfNeeded = true;
    bool optKeepIfFound = true;  // false: optDeleteIfFound
    bool chkAutoIndent = true;
    bool chkConnectors = true;
    int spnIndentBy = 4;
    std::string txtTabWidth = "4";
    bool chkProcSeparatorLine = true;
    bool chkSeparatorLineBold = true;
    int optDialect = 3;  // 0 to 3: the oldest language version first
    int optAutoDetect = kDetectAuto;
    std::array<std::vector<std::string>, 3> cboExtension;  // upper case
    std::string lblMessage;
    std::string lblDialect;
    std::array<AttributeRecord, kElementCount + 1> elements{};  // the display slot; 0 unused
    bool changed = false;
    std::string focus;  // the control a refusal leaves the focus in
};

// Every control's name and caption ("&" marks the access key), tabs and frames included.
const std::vector<std::pair<std::string, std::string>>& displayOptionsCaptions();
std::string displayOptionsCaption(const std::string& control);

// The controls as the records stand; the flag changed is clear.
void fillDisplayOptions(DisplayOptionsModel& m);

// The controls into the records in memory (settings, Format and the display slot of the elements).
void storeDisplayOptions(const DisplayOptionsModel& m);

// The dialect code of an optDialect index: "3" for index 0 up to "6" for index 3.
std::string dialectOfIndex(int index);

}  // namespace hlyd
