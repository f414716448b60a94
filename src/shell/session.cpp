// The parts of the Session are built and destroyed here, where every layer's part is known.
#include "platform/session.h"

#include <memory>

#include "analysis/analysis_state.h"
#include "base/base_state.h"
#include "display/display_state.h"
#include "files/files_state.h"
#include "html/html_state.h"
#include "printing/printing_state.h"
#include "settings/settings_state.h"
#include "shell/shell_state.h"

namespace hlyd {

Session::Session()
    : base(std::make_unique<BaseState>()),
      settings(std::make_unique<SettingsState>()),
      analysis(std::make_unique<AnalysisState>()),
      files(std::make_unique<FilesState>()),
      display(std::make_unique<DisplayState>()),
      printing(std::make_unique<PrintingState>()),
      html(std::make_unique<HtmlState>()),
      shell(std::make_unique<ShellState>()) {}

// The members go in the reverse order, the higher parts first, as in renew.
Session::~Session() = default;

// The higher parts go first, as at the end of a run, since one being destroyed may still write to
// the log of a lower one; then all are built from the ground up, as at the start. Each is built
// where the old one stood, so that what was held into a part stays valid.
void Session::renew() {
    std::destroy_at(shell.get());
    std::destroy_at(html.get());
    std::destroy_at(printing.get());
    std::destroy_at(display.get());
    std::destroy_at(files.get());
    std::destroy_at(analysis.get());
    std::destroy_at(settings.get());
    std::destroy_at(base.get());
    std::construct_at(base.get());
    std::construct_at(settings.get());
    std::construct_at(analysis.get());
    std::construct_at(files.get());
    std::construct_at(display.get());
    std::construct_at(printing.get());
    std::construct_at(html.get());
    std::construct_at(shell.get());
    // A renewed run's log starts its clock now, as a run's first line would, not at its first
    // write later on.
    base->log = std::make_unique<cLog>();
}

// The program's own Session: made before main, never destroyed, so that nothing of it runs at exit
// (a large module's tables, tens of megabytes, go with the process whole).
detail::CurrentParts detail::current = detail::partsOf(new Session);

}  // namespace hlyd
