#pragma once
// The window's views: where the core hands a dialog's model to whoever shows it, and where it
// tells the window that the view of the file is drawn. The window installs its views once; a run
// without a window keeps these, which show nothing; a test installs a few of its own.
//
// The models belong to the layers that fill them; here they are only named, so that display/,
// printing/, models/ and shell/ can all call the views without any of them knowing the window.
#include <optional>
#include <string>

#include "platform/session.h"

namespace hlyd {

struct DisplayOptionsModel;
struct ProjectFileModel;
struct PrintDialogModel;
struct PrintOptionsModel;
struct SelectProcModel;

class Views {
public:
    virtual ~Views() = default;

    // The hidden picture is finished: it becomes the visible one in one step.
    virtual void present() {}

    // A dialog shown modally, the user's clicks passed to the model's handlers; true when its OK
    // let it close, false on Cancel. Nothing when no window showed it: the caller then goes on as
    // a run without a window does, which takes the form as filled.
    virtual std::optional<bool> showProjectFile(ProjectFileModel& m);
    virtual std::optional<bool> showPrintDialog(PrintDialogModel& m);
    virtual std::optional<bool> showPrintOptions(PrintOptionsModel& m);

    // The choice of files or procedures to print; true on OK. Without a window nobody chooses.
    virtual bool showSelectProc(SelectProcModel& m);

    // The Display Options form, until it closes; its OK does the work. Without a window nothing
    // is shown, so nothing is accepted.
    virtual void showDisplayOptions(DisplayOptionsModel& m);

    // The print status dialog: its text changed; it opened (true) or closed (false).
    virtual void printStatusChanged(const std::string& text);
    virtual void printStatusShown(bool shown);
};

// The views of the Session in force; those of no window until a run or a test installs others.
inline Views& theViews() { return *currentSession().ports.views; }
void setViews(Views* views);  // nullptr restores the views of no window

// The views of every Session that was given none.
Views& windowlessViews();

// Puts views in force in the Session in force for as long as it lives; those before are in force
// in that Session again after it, whichever Session is current then.
class ViewsScope {
public:
    explicit ViewsScope(Views& views) : session_(currentSession()), previous_(session_.ports.views) {
        session_.ports.views = &views;
    }
    ~ViewsScope() { session_.ports.views = previous_; }
    ViewsScope(const ViewsScope&) = delete;
    ViewsScope& operator=(const ViewsScope&) = delete;

private:
    Session& session_;
    Views* previous_;
};

}  // namespace hlyd
