#pragma once
// The Project File dialog's procedure: the form for the listing just read, shown to the user, and
// the accepted form kept by the files while the project is open, so that the Window menu can show
// it again with its marks.
#include <optional>
#include <string>

#include "files/member_choice.h"
#include "models/project_file_model.h"

namespace hlyd {

struct FilesState;

// A new form for the listing in oProjectFiles, shown; the members chosen and the accepted form, or
// nothing on Cancel. The window shows the form modally and passes the clicks to the model.
// Without a window the tree is taken as it comes, OK pressed once.
std::optional<MemberChoice> chooseProjectMembers(const std::string& caption);

// Points the files' hook at chooseProjectMembers; the Session does so whenever it builds the part.
void connectMemberChoice(FilesState& files);

bool projectFileFormLoaded();

// Shows the kept form again. The user works on a copy: Cancel leaves the form's marks as they
// were, which are always those of the open files. The chosen entries, or nothing on Cancel.
std::optional<FileCollection> showProjectFileFormAgain();

// Tests: no form.
void resetProjectFileDialog();

}  // namespace hlyd
