#pragma once
// The main window as a windowed run shows it, for the tests that drive a command through it.
#include <memory>

#include "dialogs/hlyd_window.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "platform/qt/image_surface.h"
#include "shell/window_commands.h"

namespace hlyd::test {

// Built, drawing on its own surface, its commands set up, and shown; give it back to closeWindow.
inline std::unique_ptr<HlydWindow> showWindow() {
    auto window = std::make_unique<HlydWindow>();
    setDisplaySurface(&window->picDisplay());
    HlydDAValidateFonts();
    sbSetToolBar();
    window->show();
    return window;
}

inline void closeWindow(std::unique_ptr<HlydWindow>& window) {
    setDisplaySurface(nullptr);
    window.reset();
}

}  // namespace hlyd::test
