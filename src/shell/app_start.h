#pragma once
// The spine of a run: the start mode, the shared objects, initialisation in a fixed order, the
// one command-line job, and the end.
#include <cstdint>
#include <string>
#include <vector>

namespace hlyd {

struct HlydMainState {
    std::int32_t StartMode = 0;
    std::string CommandLine;
    long StartTime = 0;  // seconds since midnight
    std::string HelpFile;
    std::vector<std::string> ElementClassNames;
    bool ApplicationEnding = false;
};

HlydMainState& hlydMain();
void resetHlydMain();

// The entry point; returns the process exit code.
int Main(const std::string& commandLine, std::int32_t platformMode = 0);

void InitApp();
void HLYDStart();
void HLYDShow();
void HlydMNTerminateApp();
void HLYDEndApplication();

}  // namespace hlyd
