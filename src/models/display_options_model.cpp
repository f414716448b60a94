#include "models/display_options_model.h"

#include "platform/char_case.h"
#include "settings/settings_store.h"
#include "models/display_options_rules.h"

namespace hlyd {

namespace {

const std::vector<std::pair<std::string, std::string>> kCaptions = {
        {"frmDisplayOptions", "Display Options"},
        {"tabGeneral", "General"},
        {"tabListing", "Listing"},
        {"tabFonts", "Fonts"},
        {"tabFiles", "Dialect and Files"},
        {"chkShowOpenDialog", "Show File Open Dialo&g upon program start"},
        {"lblDefaultFileLoc", "&Default File Location"},
        {"cmdDefaultFileLoc", "..."},
        {"fraUser", "User"},
        {"lblUser0", "&Name "},
        {"lblUser1", "&Company "},
        {"fraView", "View"},
        {"optView0", "&Form Definition Only"},
        {"optView1", "Code Onl&y"},
        {"optView2", "&Both"},
        {"chkSkipAttributes", "Skip Attributes"},
        {"fraContinuation", "Line Continuation"},
        {"chkGenerateIfNeeded", "Gener&ate if Needed"},
        {"optKeepIfFound", "&Keep if Found"},
        {"optDeleteIfFound", "&Delete if Found"},
        {"fraIndent", "Indentation"},
        {"chkAutoIndent", "Auto&indent"},
        {"chkConnectors", "&Show Connectors"},
        {"lblIndentBy", "Amoun&t"},
        {"lblTabWidth", "Tab &Width"},
        {"fraSeparator", "Procedures"},
        {"chkProcSeparatorLine", "Line Separato&r"},
        {"chkSeparatorLineBold", "B&old"},
        {"lblFontsHint", "Double click to change a particular font or color"},
        {"cmdAllFonts0", "Change &All Fonts"},
        {"cmdAllFonts1", "Copy from &Print Settings"},
        {"fraDialect", "Default Dialect"},
        {"optDialect0", "Visual Basic &3.0"},
        {"optDialect1", "Visual Basic &4.0"},
        {"optDialect2", "Visual Basic &5.0"},
        {"optDialect3", "Visual Basic &6.0"},
        {"fraDetect", "Dialect Detection"},
        {"optAutoDetect0", "&Auto Detect"},
        {"optAutoDetect1", "&Manual Select"},
        {"fraExtension", "File Extensions"},
        {"lblExtension0", "&Project"},
        {"lblExtension1", "Designer &Objects"},
        {"lblExtension2", "&Code"},
        {"lblExtensionHint", "Type an extension and leave the field to add it; double click one to remove it."},
        {"cmdOk", "OK"},
        {"cmdCancel", "Cancel"},
};

std::vector<std::string> splitList(const std::string& list) {
    std::vector<std::string> items;
    std::string::size_type start = 0;
    while (start <= list.size()) {
        std::string::size_type bar = list.find('|', start);
        if (bar == std::string::npos) bar = list.size();
        if (bar > start) items.push_back(upperCase(list.substr(start, bar - start)));
        start = bar + 1;
    }
    return items;
}

std::string joinList(const std::vector<std::string>& items) {
    std::string list;
    for (const std::string& item : items) list += (list.empty() ? "" : "|") + item;
    return list;
}

int dialectIndex(const std::string& dialect) {
    if (dialect.size() == 1 && dialect[0] >= '3' && dialect[0] <= '6') return dialect[0] - '3';
    return 3;
}

std::int16_t flag(bool on) { return on ? 1 : 0; }

void fillFormat(DisplayOptionsModel& m) {
    const FormatRecord& f = displayAttributes().Format[kDisplay];
    m.chkSkipAttributes = f.SkipAttributes != 0;
    m.chkGenerateIfNeeded = f.ContinueGenerate != 0;
    m.optKeepIfFound = f.ContinueHonor != 0;
    m.chkAutoIndent = f.Indent != 0;
    m.chkConnectors = f.ConnectControls != 0;
    m.spnIndentBy = f.IndentAmount;
    m.txtTabWidth = std::to_string(f.TabWidth);
    m.chkProcSeparatorLine = f.Separator != 0;
    m.chkSeparatorLineBold = f.SeparatorBold != 0;
}

void storeFormat(const DisplayOptionsModel& m) {
    FormatRecord& f = displayAttributes().Format[kDisplay];
    f.SkipAttributes = flag(m.chkSkipAttributes);
    f.ContinueGenerate = flag(m.chkGenerateIfNeeded);
    f.ContinueHonor = flag(m.optKeepIfFound);
    f.Indent = flag(m.chkAutoIndent);
    f.ConnectControls = flag(m.chkConnectors);
    f.IndentAmount = static_cast<std::int16_t>(m.spnIndentBy);
    f.TabWidth = static_cast<std::int16_t>(std::stoi(m.txtTabWidth));
    f.Separator = flag(m.chkProcSeparatorLine);
    f.SeparatorBold = flag(m.chkSeparatorLineBold);
}

}  // namespace

const std::vector<std::pair<std::string, std::string>>& displayOptionsCaptions() { return kCaptions; }

std::string displayOptionsCaption(const std::string& control) {
    for (const auto& [name, caption] : kCaptions)
        if (name == control) return caption;
    return {};
}

std::string dialectOfIndex(int index) { return std::to_string(3 + index); }

void fillDisplayOptions(DisplayOptionsModel& m) {
    const HlydSettings& s = hlydSettings();
    m = DisplayOptionsModel{};
    m.chkShowOpenDialog = s.ShowOpenDialog;
    m.txtDefaultFileLoc = s.DefaultFileLoc;
    m.txtUser = {s.UserName, s.UserCompany};
    bool code = s.ViewCode[kDisplay], form = s.ViewFormDef[kDisplay];
    m.optView = code && form ? kShowBoth : code ? kShowCodeOnly : kShowFormDefOnly;
    fillFormat(m);
    m.optDialect = dialectIndex(s.Dialect);
    m.optAutoDetect = s.DetectDialect ? kDetectAuto : kDetectManual;
    m.lblDialect = dialectExplanation(m.optAutoDetect);
    m.cboExtension = {splitList(s.ProjectExt), splitList(s.FormExt), splitList(s.BasicExt)};
    for (int e = 1; e <= kElementCount; ++e) m.elements[e] = displayAttributes().Elements[e].slot[kDisplay];
}

void storeDisplayOptions(const DisplayOptionsModel& m) {
    HlydSettings& s = hlydSettings();
    s.ShowOpenDialog = m.chkShowOpenDialog;
    s.DefaultFileLoc = m.txtDefaultFileLoc;
    s.UserName = m.txtUser[0];
    s.UserCompany = m.txtUser[1];
    s.ViewCode[kDisplay] = m.optView != kShowFormDefOnly;
    s.ViewFormDef[kDisplay] = m.optView != kShowCodeOnly;
    storeFormat(m);
    s.Dialect = dialectOfIndex(m.optDialect);
    s.DetectDialect = m.optAutoDetect == kDetectAuto;
    s.ProjectExt = joinList(m.cboExtension[kExtProject]);
    s.FormExt = joinList(m.cboExtension[kExtForms]);
    s.BasicExt = joinList(m.cboExtension[kExtCode]);
    for (int e = 1; e <= kElementCount; ++e) displayAttributes().Elements[e].slot[kDisplay] = m.elements[e];
}

}  // namespace hlyd
