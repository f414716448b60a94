#pragma once
// The spine of a run: the start mode, the shared objects, initialisation in a fixed order, the
// one command-line job, and the end.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace hlyd {

struct HlydMainState {
    std::int32_t StartMode = 0;
    std::string CommandLine;
    long StartTime = 0;           // seconds since midnight
    std::int64_t StartTicks = 0;  // the clock's milliseconds at the start, for the splash's wait
    std::string HelpFile;
    std::vector<std::string> ElementClassNames;
    bool ApplicationEnding = false;
    bool SplashWaitEnded = false;  // the user pressed a key or clicked on the splash
};

// What a run with a window adds to the start and the stop. A run without a window leaves the hooks
// empty, and the start and stop go the same way without them.
struct WindowedRun {
    std::function<void()> loadMainWindow;  // built, hidden; its surface becomes picDisplay
    std::function<void(const std::string& user, const std::string& company)> showSplash;
    std::function<void()> raiseSplash;
    std::function<void()> closeSplash;
    std::function<void()> showMainWindow;  // shown, in front
    std::function<void()> hideMainWindow;
    std::function<void()> storeWindowState;  // the window's place and bars into the settings
    std::function<void()> unloadForms;       // every window closed; the event loop ends
    bool active() const { return static_cast<bool>(loadMainWindow); }
};
WindowedRun& windowedRun();

HlydMainState& hlydMain();

// The entry point; returns the process exit code. With a window, the caller then runs the event
// loop unless the run has ended already (hlydMain().ApplicationEnding).
int Main(const std::string& commandLine, std::int32_t platformMode = 0);

// A key or a click on the splash: the user has seen it and wants the window now.
void endSplashWait();

void InitApp();
void HLYDStart();
void HLYDShow();
void HlydMNTerminateApp();
void HLYDEndApplication();

}  // namespace hlyd
