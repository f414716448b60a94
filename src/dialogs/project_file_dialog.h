#pragma once
// frmProjectFile in the window: the tree of a project's members with their check marks, the
// information panel and the buttons. The rules are the project choice's model; this form only
// shows the model and passes the user's clicks and keys on.
class QWidget;

namespace hlyd {

struct ProjectFileModel;

// The form shown modally over `parent`; true when its OK let it close.
bool showProjectFileForm(QWidget* parent, ProjectFileModel& m);

}  // namespace hlyd
