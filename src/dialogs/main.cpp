// The application's entry: the command line as one text, as the start-mode rules read it, and
// a run with windows.
#include <string>

#include "base/app_info.h"
#include "dialogs/qt_application.h"

int main(int argc, char** argv) {
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    std::string commandLine;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) commandLine += ' ';
        commandLine += argv[i];
    }
    return hlyd::runWindowed(argc, argv, commandLine);
}
