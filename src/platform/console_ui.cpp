#include "platform/console_ui.h"

#include <cstdio>

namespace hlyd {

MsgAnswer defaultAnswer(const MessageBoxRequest& request) {
    static const MsgAnswer answers[][3] = {
            {MsgAnswer::OK, MsgAnswer::OK, MsgAnswer::OK},
            {MsgAnswer::OK, MsgAnswer::Cancel, MsgAnswer::Cancel},
            {MsgAnswer::Abort, MsgAnswer::Retry, MsgAnswer::Ignore},
            {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::Cancel},
            {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::No},
            {MsgAnswer::Retry, MsgAnswer::Cancel, MsgAnswer::Cancel},
    };
    int which = request.defaultButton;
    if (which < 1 || which > 3) which = 1;
    return answers[static_cast<int>(request.buttons)][which - 1];
}

MsgAnswer windowlessAnswer(const MessageBoxRequest& request, std::FILE* note) {
    static const char* const kNames[] = {"", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
    MsgAnswer answer = defaultAnswer(request);
    if (answer == MsgAnswer::Retry)
        answer = request.buttons == MsgButtons::AbortRetryIgnore ? MsgAnswer::Abort : MsgAnswer::Cancel;
    if (answer != MsgAnswer::OK && note)
        std::fprintf(note, "(no window to ask: answered %s)\n", kNames[static_cast<int>(answer)]);
    return answer;
}

MsgAnswer ConsoleUi::messageBox(const MessageBoxRequest& request) {
    std::fprintf(stderr, "%s%s%s\n", request.title.c_str(), request.title.empty() ? "" : ": ", request.text.c_str());
    return windowlessAnswer(request, stderr);
}

void Ui::errorReport(const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }

ConsoleUi& sharedConsoleUi() {
    static ConsoleUi console;
    return console;
}

void setUi(Ui* ui) { currentSession().ports.ui = ui ? ui : &sharedConsoleUi(); }

}  // namespace hlyd
