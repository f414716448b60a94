#pragma once
// The views the main window installs: every dialog of the core as a form over the window, and
// the finished picture of the file presented on it.
#include <QPointer>

#include "platform/views.h"

class QDialog;

namespace hlyd {

class HlydWindow;

class WindowViews : public Views {
public:
    explicit WindowViews(HlydWindow& window);

    void present() override;
    std::optional<bool> showProjectFile(ProjectFileModel& m) override;
    std::optional<bool> showPrintDialog(PrintDialogModel& m) override;
    std::optional<bool> showPrintOptions(PrintOptionsModel& m) override;
    bool showSelectProc(SelectProcModel& m) override;
    void showDisplayOptions(DisplayOptionsModel& m) override;
    void printStatusChanged(const std::string& text) override;
    void printStatusShown(bool shown) override;

private:
    HlydWindow& window_;
    QPointer<QDialog> status_;  // a child of the window, made once
};

}  // namespace hlyd
