#include "models/project_file_model.h"

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "files/project_file.h"

namespace hlyd {

namespace {

void logChosen(const FileCollection& chosen) {
    for (const cFileDesc& d : chosen)
        theLog().LogData("Selected file:" + d.FileName + " type " + std::to_string(d.FileType) + " " +
                         std::to_string(d.WhichFile) + " " + std::to_string(d.WhichProject));
}

// A choice with no member in it goes no further.
bool acceptChoice(ProjectFileModel& m, bool anyMember) {
    if (anyMember) {
        if (theDebug().TraceApplication) logChosen(m.Chosen);
        return true;
    }
    m.Chosen.Clear();
    showMessage("No files have been selected\nCannot proceed", theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
    return false;
}

}  // namespace

ProjectPanel panelOf(ProjectFileModel& m, int node) { return DisplayData(m.Outline, m.Dates, oProjectFiles(), node); }

bool cmdOK_Click(ProjectFileModel& m) {
    TraceScope trace(theDebug().TraceApplication, "cmdOK_Click");
    m.Chosen.Clear();
    return acceptChoice(m, m.Outline.GetSelected(oProjectFiles(), m.Chosen));
}

bool acceptEveryMember(ProjectFileModel& m) {
    m.Chosen.Clear();
    return acceptChoice(m, chooseEveryMember(oProjectFiles(), m.Chosen) >= 1);
}

}  // namespace hlyd
