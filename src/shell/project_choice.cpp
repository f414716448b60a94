#include "shell/project_choice.h"

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "files/cut_reports.h"
#include "files/files_state.h"
#include "files/project_file.h"
#include "platform/views.h"

namespace hlyd {

namespace {

std::optional<ProjectFileModel>& loadedForm() { return filesState().projectFileForm; }

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

// The dialog's tree holds the first lines of a project only; the user who saw it hears which
// projects list members it could not offer.
void tellLinesBeyondTheTree() {
    cProjectFiles& projects = oProjectFiles();
    for (int p = 1; p <= projects.Count(); ++p) {
        const cProjectFile& project = projects.Item(p);
        if (project.FileType == 0) continue;
        std::size_t lines = project.ProjectRecords.size(), beyond = 0;
        for (std::size_t n = kLinesPerProject; n <= lines; ++n)
            if (project.ProjectRecords[n - 1].Key) ++beyond;
        if (beyond == 0) continue;
        tellCut(CutKind::ListingBound, project.FileName + ": the Project File dialog lists the first " +
                                               std::to_string(kLinesPerProject - 1) + " of its " +
                                               std::to_string(lines) + " lines; " + std::to_string(beyond) +
                                               " members named after them cannot be chosen here");
    }
}

// Without a window nobody can change the marks: every member that is there is taken, as OK on the
// marks as they start would, but with no bound on the lines of a project.
bool chooseWithoutWindow(ProjectFileModel& m) {
    m.Chosen.Clear();
    return acceptChoice(m, chooseEveryMember(oProjectFiles(), m.Chosen) >= 1);
}

bool runForm(ProjectFileModel& m) {
    std::optional<bool> accepted = theViews().showProjectFile(m);
    if (!accepted) return chooseWithoutWindow(m);
    tellLinesBeyondTheTree();
    return *accepted;
}

}  // namespace

ProjectPanel panelOf(ProjectFileModel& m, int node) { return DisplayData(m.Outline, m.Dates, oProjectFiles(), node); }

bool cmdOK_Click(ProjectFileModel& m) {
    TraceScope trace(theDebug().TraceApplication, "cmdOK_Click");
    m.Chosen.Clear();
    return acceptChoice(m, m.Outline.GetSelected(oProjectFiles(), m.Chosen));
}

std::optional<ProjectFileModel> chooseProjectMembers(const std::string& caption) {
    ProjectFileModel m;
    m.Caption = caption;
    m.Outline.OutlineSetData(oProjectFiles());
    m.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(m)) return std::nullopt;
    return m;
}

void keepProjectFileForm(ProjectFileModel m) { loadedForm() = std::move(m); }
bool projectFileFormLoaded() { return loadedForm().has_value(); }
void unloadProjectFileForm() { loadedForm().reset(); }

std::optional<FileCollection> showProjectFileFormAgain() {
    if (!loadedForm()) return std::nullopt;
    ProjectFileModel working = *loadedForm();
    // The dates may have moved since the form was loaded: a member printed or saved since.
    working.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(working)) return std::nullopt;
    loadedForm() = std::move(working);
    return loadedForm()->Chosen;
}

void resetProjectFileDialog() { loadedForm().reset(); }

}  // namespace hlyd
