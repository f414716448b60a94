#pragma once
// The print status dialog's side of a run: the text it shows, and the one place where the
// window may take a Cancel click while pages are made.
#include <functional>
#include <string>

namespace hlyd {

// The window's dialog listens here; without one the text only lands in the state.
void setPrintStatusView(std::function<void(const std::string& text)> show);
// Shows the text and lets pending events in.
void showPrintStatus(const std::string& text);

}  // namespace hlyd
