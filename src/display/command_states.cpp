#include "display/command_states.h"

#include "base/text_format.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

struct ButtonFace {
    const char* name;
    const char* caption;
    const char* tipEnabled;
    const char* tipDisabled;
};

constexpr ButtonFace kButtons[] = {
        {kTbrOpen, "Open", "Open a file or project for processing", ""},
        {kTbrClose, "Close", "Close this file", "Not available unless a file is open"},
        {kTbrPrint, "Print", "Print this file", "Printing not currently available"},
        {kTbrPrintOptions, "Print Options", "Set Halyard Print Options ", ""},
        {kTbrDisplayOptions, "Display Options", "Set Halyard Display Options ", ""},
        {kTbrPriorProcedure, "Prior Procedure", "Display the Prior procedure in File", "Not available"},
        {kTbrNextProcedure, "Next Procedure", "Display the Next procedure in File", "Not available"},
        {kTbrPrintThisProcedure, "Print This Procedure", "Print the current procedure ", "Not available"},
        {kTbrProcedures, "Procedures", "Select Procedure to View", "Not available"},
        {kTbrPriorFile, "Prior File", "Display the Prior File in list", "Not available"},
        {kTbrNextFile, "Next File", "Display the Next File in list", "Not available"},
        {kTbrHelp, "Help", "Help", "Not available - Help file Missing"},
};

const ButtonFace* buttonFace(const std::string& name) {
    for (const ButtonFace& face : kButtons)
        if (name == face.name) return &face;
    return nullptr;
}

}  // namespace

void setCommand(const std::string& name, bool enabled) {
    CommandState& c = mainWindow().command(name);
    c.enabled = enabled;
    if (const ButtonFace* face = buttonFace(name)) c.tip = enabled ? face->tipEnabled : face->tipDisabled;
}

void setButtonAndMenu(const std::string& button, const std::string& menu, bool enabled) {
    setCommand(button, enabled);
    setCommand(menu, enabled);
}

void setButtonFaces() {
    MainWindowModel& w = mainWindow();
    for (const ButtonFace& face : kButtons) {
        w.command(face.name).caption = face.caption;
        setCommand(face.name, w.command(face.name).enabled);
    }
}

void sbProcButtonsSet() {
    const SortedListModel& list = mainWindow().cboProc;
    bool listUsable = fileTable().wCurrentFile >= 1 && list.ListCount() >= 1;
    setCommand("cboProc", listUsable);
    setCommand(kTbrProcedures, listUsable);
    int last = list.ListCount() - 1;
    bool atFirst = list.ListIndex == 0;
    // A last line " ..." stands for procedures not read yet: there is more to go to.
    bool atLast = listUsable && list.ListIndex == last && trimSpaces(list.List(last)) != "...";
    // A list of one entry (declarations only, or one procedure) has nowhere to go, wherever the
    // list stands; the bare position rule would offer a step that does nothing.
    bool somewhereToGo = listUsable && list.ListCount() >= 2;
    setButtonAndMenu(kTbrPriorProcedure, kMnuViewProc1, somewhereToGo && !atFirst);
    setButtonAndMenu(kTbrNextProcedure, kMnuViewProc0, somewhereToGo && !atLast);
}

void sbFileButtonSet() {
    const FileTableModule& f = fileTable();
    // Only a file that is shown has neighbours: a selection that left the table empty (a
    // project with no readable member) may leave wCurrentFile anywhere.
    bool shown = f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count();
    setButtonAndMenu(kTbrPriorFile, kMnuViewFile1, shown && f.wCurrentFile > 1);
    setButtonAndMenu(kTbrNextFile, kMnuViewFile0, shown && f.wCurrentFile != f.oFile.Count());
}

}  // namespace hlyd
