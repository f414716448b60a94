#pragma once
// The user-interface port on Qt: message boxes, the file dialogs, a list to choose from, the
// hourglass and the processing of pending events.
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <functional>

#include "platform/ui.h"

namespace hlyd {

class QtUi : public Ui {
public:
    // Dialogs are placed over this window when there is one.
    void setParentWindow(QWidget* window) { parent_ = window; }
    // Runs before pending events are handled: the logic writes labels (progress of a long read)
    // and expects them seen at these points.
    std::function<void()> beforeEvents;
    // The size of the list of open files: the window layer keeps it in the settings.
    QSize fileListSize;
    // The dialog of the error report, which the window layer puts in; a plain box without it.
    std::function<void(const std::string& text)> errorReportDialog;

    MsgAnswer messageBox(const MessageBoxRequest& request) override;
    void processEvents() override;
    void beep() override;
    std::optional<std::vector<std::string>> openFileDialog(const FileDialogRequest& request) override;
    std::optional<int> chooseFromList(const std::string& title, const std::vector<std::string>& items) override;
    std::optional<std::string> saveFileDialog(const FileDialogRequest& request) override;
    std::optional<std::string> inputBox(const InputBoxRequest& request) override;
    bool printerDialog(PrinterDialogRequest& request) override;
    void setBusy(bool busy) override;
    void errorReport(const std::string& text) override;
    bool openUrl(const std::string& url) override;
    bool openFile(const std::string& path) override;
    void setClipboardText(const std::string& text) override;

private:
    QPointer<QWidget> parent_;
    bool busy_ = false;
};

// "caption|pattern|caption|pattern" as a file dialog's name filters, "caption (pattern)" each.
QStringList nameFiltersOf(const std::string& filter);

}  // namespace hlyd
