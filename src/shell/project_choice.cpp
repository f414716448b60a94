#include "shell/project_choice.h"

#include "files/cut_reports.h"
#include "files/files_state.h"
#include "files/project_file.h"
#include "platform/views.h"

namespace hlyd {

namespace {

ProjectFileModel* loadedForm() { return std::any_cast<ProjectFileModel>(&filesState().projectFileForm); }

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

bool runForm(ProjectFileModel& m) {
    std::optional<bool> accepted = theViews().showProjectFile(m);
    if (!accepted) return acceptEveryMember(m);
    tellLinesBeyondTheTree();
    return *accepted;
}

}  // namespace

std::optional<MemberChoice> chooseProjectMembers(const std::string& caption) {
    ProjectFileModel m;
    m.Caption = caption;
    m.Outline.OutlineSetData(oProjectFiles());
    m.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(m)) return std::nullopt;
    FileCollection chosen = m.Chosen;
    return MemberChoice{std::move(chosen), std::move(m)};
}

void connectMemberChoice(FilesState& files) { files.chooseMembers = chooseProjectMembers; }

bool projectFileFormLoaded() { return loadedForm() != nullptr; }

std::optional<FileCollection> showProjectFileFormAgain() {
    if (!loadedForm()) return std::nullopt;
    ProjectFileModel working = *loadedForm();
    // The dates may have moved since the form was loaded: a member printed or saved since.
    working.Dates.SetTMRInfo(oProjectFiles());
    if (!runForm(working)) return std::nullopt;
    *loadedForm() = std::move(working);
    return loadedForm()->Chosen;
}

void resetProjectFileDialog() { filesState().projectFileForm.reset(); }

}  // namespace hlyd
