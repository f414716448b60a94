#pragma once
// The window's views as a test plays them: each view a lambda, and one left empty goes to the
// views that were in force when these were made (those of no window, or a window's). They are in
// force in the Session of their making while the object lives.
#include <functional>
#include <optional>
#include <string>

#include "platform/views.h"

namespace hlyd::test {

class TestViews : public Views {
public:
    TestViews() : behind_(theViews()), inForce_(*this) {}

    std::function<void()> presented;
    std::function<bool(ProjectFileModel&)> projectFile;
    std::function<bool(PrintDialogModel&)> printDialog;
    std::function<bool(PrintOptionsModel&)> printOptions;
    std::function<bool(SelectProcModel&)> selectProc;
    std::function<void(DisplayOptionsModel&)> displayOptions;
    std::function<void(const std::string&)> statusChanged;
    std::function<void(bool)> statusShown;

    void present() override { presented ? presented() : behind_.present(); }
    std::optional<bool> showProjectFile(ProjectFileModel& m) override {
        return projectFile ? projectFile(m) : behind_.showProjectFile(m);
    }
    std::optional<bool> showPrintDialog(PrintDialogModel& m) override {
        return printDialog ? printDialog(m) : behind_.showPrintDialog(m);
    }
    std::optional<bool> showPrintOptions(PrintOptionsModel& m) override {
        return printOptions ? printOptions(m) : behind_.showPrintOptions(m);
    }
    bool showSelectProc(SelectProcModel& m) override { return selectProc ? selectProc(m) : behind_.showSelectProc(m); }
    void showDisplayOptions(DisplayOptionsModel& m) override {
        displayOptions ? displayOptions(m) : behind_.showDisplayOptions(m);
    }
    void printStatusChanged(const std::string& text) override {
        statusChanged ? statusChanged(text) : behind_.printStatusChanged(text);
    }
    void printStatusShown(bool shown) override { statusShown ? statusShown(shown) : behind_.printStatusShown(shown); }

private:
    Views& behind_;
    ViewsScope inForce_;
};

}  // namespace hlyd::test
