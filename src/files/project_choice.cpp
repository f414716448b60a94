#include "files/project_choice.h"

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "files/project_file.h"

namespace hlyd {

namespace {

ProjectFileView dialogView;
std::optional<ProjectFileModel> loadedForm;

void logChosen(const FileCollection& chosen) {
    for (const cFileDesc& d : chosen)
        theLog().LogData("Selected file:" + d.FileName + " type " + std::to_string(d.FileType) + " " +
                         std::to_string(d.WhichFile) + " " + std::to_string(d.WhichProject));
}

// Without a window nobody can change the marks: OK once, as they stand.
bool runForm(ProjectFileModel& m) { return dialogView ? dialogView(m) : cmdOK_Click(m); }

}  // namespace

ProjectPanel panelOf(ProjectFileModel& m, int node) { return DisplayData(m.Outline, m.Dates, oProjectFiles(), node); }

bool cmdOK_Click(ProjectFileModel& m) {
    TraceScope trace(theDebug().TraceApplication, "cmdOK_Click");
    m.Chosen.Clear();
    if (m.Outline.GetSelected(oProjectFiles(), m.Chosen)) {
        if (theDebug().TraceApplication) logChosen(m.Chosen);
        return true;
    }
    m.Chosen.Clear();
    showMessage("No files have been selected\nCannot proceed", theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
    return false;
}

void setProjectFileView(ProjectFileView view) { dialogView = std::move(view); }

std::optional<ProjectFileModel> chooseProjectMembers(const std::string& caption) {
    ProjectFileModel m;
    m.Caption = caption;
    m.Outline.OutlineSetData(oProjectFiles());
    m.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(m)) return std::nullopt;
    return m;
}

void keepProjectFileForm(ProjectFileModel m) { loadedForm = std::move(m); }
bool projectFileFormLoaded() { return loadedForm.has_value(); }
void unloadProjectFileForm() { loadedForm.reset(); }

std::optional<FileCollection> showProjectFileFormAgain() {
    if (!loadedForm) return std::nullopt;
    ProjectFileModel working = *loadedForm;
    // The dates may have moved since the form was loaded: a member printed or saved since.
    working.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(working)) return std::nullopt;
    loadedForm = std::move(working);
    return loadedForm->Chosen;
}

void resetProjectFileDialog() {
    dialogView = nullptr;
    loadedForm.reset();
}

}  // namespace hlyd
