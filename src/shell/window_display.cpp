#include "shell/window_display.h"

#include <string_view>

namespace hlyd {

namespace {

bool isSet(const EnvironmentReader& environment, const char* name) {
    const char* value = environment(name);
    return value && *value;
}

// The platforms that draw on an X or Wayland display; any other one the user chose (offscreen,
// minimal, a frame buffer, VNC) needs none.
bool needsDisplayServer(std::string_view platform) {
    while (!platform.empty()) {
        std::size_t end = platform.find(';');  // a list of platforms, tried in order
        std::string_view one = platform.substr(0, end);
        if (!one.empty() && one != "xcb" && one.substr(0, 7) != "wayland") return false;
        if (end == std::string_view::npos) break;
        platform.remove_prefix(end + 1);
    }
    return true;
}

}  // namespace

std::string noDisplayHint() { return "To print without a window, name the file: halyard --pdf OUT.pdf FILE\n"; }

std::string noDisplayProblem(const EnvironmentReader& environment) {
#if defined(_WIN32) || defined(__APPLE__)
    (void)environment;
    return {};  // the desktop is always there
#else
    const char* platform = environment("QT_QPA_PLATFORM");
    if (platform && *platform && !needsDisplayServer(platform)) return {};
    if (isSet(environment, "DISPLAY") || isSet(environment, "WAYLAND_DISPLAY")) return {};
    return "halyard: the window needs a display, and none is set (DISPLAY or WAYLAND_DISPLAY).\n" + noDisplayHint();
#endif
}

}  // namespace hlyd
