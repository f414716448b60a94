#pragma once
// The Project File dialog as a plain model: the tree and dates of the listing just read, the panel
// of a node, and OK turning the checked members into entries of the file table. The form binds
// to it; the tests drive it directly.
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

// What OK would take without a window, where nobody can change the marks: every member that is
// there, with no bound on the lines of a project. Told as cmdOK_Click tells it.
bool acceptEveryMember(ProjectFileModel& m);

}  // namespace hlyd
