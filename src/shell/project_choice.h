#pragma once
// The Project File dialog's procedure: the tree and dates of the listing just read, shown to the
// user, and OK turning the checked members into entries of the file table. The form stays loaded
// while the project is open, so that the Window menu can show it again with its marks.
#include <optional>
#include <string>

#include "files/file_table.h"
#include "files/project_dates.h"
#include "files/project_panel.h"
#include "files/project_tree.h"

namespace hlyd {

struct ProjectFileModel {
    std::string Caption;
    cotlControl Outline;
    MemberDates Dates;
    FileCollection Chosen;  // what the last accepted OK handed over
};

// The panel of a node of the model's tree.
ProjectPanel panelOf(ProjectFileModel& m, int node);

// True when at least one member is checked: the entries are in m.Chosen and the dialog may close.
// Otherwise the user is told that nothing can go on, and the dialog stays.
bool cmdOK_Click(ProjectFileModel& m);

// A new form for the listing in oProjectFiles, shown; the accepted form, or nothing on Cancel.
// The window shows the form modally and passes the clicks to the model. Without a window the tree
// is taken as it comes, OK pressed once.
std::optional<ProjectFileModel> chooseProjectMembers(const std::string& caption);

// The form that the open project's listing keeps, and its unloading when the files close.
void keepProjectFileForm(ProjectFileModel m);
bool projectFileFormLoaded();
void unloadProjectFileForm();

// Shows the kept form again. The user works on a copy: Cancel leaves the form's marks as they
// were, which are always those of the open files. The chosen entries, or nothing on Cancel.
std::optional<FileCollection> showProjectFileFormAgain();

// Tests: no form.
void resetProjectFileDialog();

}  // namespace hlyd
