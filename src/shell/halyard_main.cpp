// The application's entry: the command line as one text, as the start-mode rules read it.
#include <string>

#include "shell/app_info.h"
#include "shell/app_start.h"

int main(int argc, char** argv) {
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    std::string commandLine;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) commandLine += ' ';
        commandLine += argv[i];
    }
    return hlyd::Main(commandLine);
}
