#pragma once
// The user-interface port: everything the core asks of a person goes through here, so that the
// logic runs the same in the window, in the command-line tools and under test.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/session.h"

namespace hlyd {

enum class MsgButtons { OK, OKCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class MsgIcon { None, Critical, Question, Warning, Information };
// The values of the answers are those of the classic message box, so that logs stay comparable.
enum class MsgAnswer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct MessageBoxRequest {
    std::string text;
    std::string title;
    MsgButtons buttons = MsgButtons::OK;
    MsgIcon icon = MsgIcon::None;
    int defaultButton = 1;  // 1, 2 or 3: which of the buttons answers Enter
};

// The answer that the default button of a request stands for.
MsgAnswer defaultAnswer(const MessageBoxRequest& request);

// An open or save dialog: `filter` holds "|"-separated pairs of caption and pattern.
struct FileDialogRequest {
    std::string title;
    std::string directory;
    std::string fileName;
    std::string filter;
    int filterIndex = 1;
    bool multiSelect = false;
};

// A one-line question: the prompt, the box's title, and the text the answer field starts with.
// Its texts and the answer are single-byte (Windows-1252), like the source text they go with.
struct InputBoxRequest {
    std::string prompt;
    std::string title;
    std::string defaultText;
};

// The platform's printer dialog: the printers to choose from, the one in force and the job's
// properties; on OK it holds what the user chose.
struct PrinterDialogRequest {
    std::vector<std::string> printers;
    std::string printer;
    std::int16_t Orientation = 1;
    std::int16_t Copies = 1;
    std::int16_t Duplex = 1;
    std::int16_t PaperSize = 1;
    std::int16_t PrintQuality = -4;
};

class Ui {
public:
    virtual ~Ui() = default;
    virtual MsgAnswer messageBox(const MessageBoxRequest& request) = 0;
    virtual void processEvents() {}
    virtual void beep() {}
    // The chosen files (several when the request allows), or nothing when the user cancels.
    virtual std::optional<std::vector<std::string>> openFileDialog([[maybe_unused]] const FileDialogRequest& request) {
        return std::nullopt;
    }
    // A choice from a list (the list of open files); the position from 0, or nothing on cancel.
    virtual std::optional<int> chooseFromList([[maybe_unused]] const std::string& title,
                                              [[maybe_unused]] const std::vector<std::string>& items) {
        return std::nullopt;
    }
    // The chosen file name, or nothing when the user cancels. Without a dialog nobody chooses.
    virtual std::optional<std::string> saveFileDialog([[maybe_unused]] const FileDialogRequest& request) {
        return std::nullopt;
    }
    // The text the user entered, or nothing when the user cancels. Without a window nobody answers.
    virtual std::optional<std::string> inputBox([[maybe_unused]] const InputBoxRequest& request) {
        return std::nullopt;
    }
    // The printer dialog; false when the user cancels. Without a dialog nothing changes.
    virtual bool printerDialog([[maybe_unused]] PrinterDialogRequest& request) { return false; }
    // The hourglass while the program is busy, the default pointer after.
    virtual void setBusy([[maybe_unused]] bool busy) {}
    // The report of an unexpected failure, shown until the user closes it. Without a window it
    // goes to standard error, where a script or a terminal still sees it.
    virtual void errorReport(const std::string& text);
    // Hands a URL (a mail link) to the desktop; false when nothing took it.
    virtual bool openUrl([[maybe_unused]] const std::string& url) { return false; }
    // Opens a local file (a help page) in the desktop's viewer for it; false when nothing took it.
    virtual bool openFile([[maybe_unused]] const std::string& path) { return false; }
    virtual void setClipboardText([[maybe_unused]] const std::string& text) {}
};

// The port of the Session in force; a console implementation until the run installs another.
inline Ui& theUi() { return *currentSession().ports.ui; }
void setUi(Ui* ui);  // nullptr restores the console implementation

}  // namespace hlyd
