#include "shell/command_line_job.h"
#include "shell/shell_state.h"

#include <iostream>

namespace hlyd {

namespace {
CommandLineJob& job() { return shellState().commandLineJob; }
}  // namespace

CommandLineJob& commandLineJob() { return job(); }
void resetCommandLineJob() { job() = CommandLineJob{}; }

std::ostream& jobOut() { return job().out ? *job().out : std::cout; }
std::ostream& jobErr() { return job().err ? *job().err : std::cerr; }

void failJob(int status, const std::string& message) {
    jobErr() << "halyard: " << message << '\n';
    if (job().exitStatus == 0) job().exitStatus = status;
}

}  // namespace hlyd
