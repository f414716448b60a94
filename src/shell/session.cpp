// The shell puts the Session together from the parts that each layer makes, renews and frees in
// its own source; it needs none of their types. It also points the hooks that a lower part holds
// at the shell's procedures, so that they stand in every Session and survive every reset.
#include "shell/session.h"

#include "platform/session.h"
#include "shell/project_choice.h"

namespace hlyd {

namespace {
void connectParts(Session& s) { connectMemberChoice(*s.files); }
}  // namespace

Session::Session()
    : base(SessionPartLife<BaseState>::make()),
      settings(SessionPartLife<SettingsState>::make()),
      analysis(SessionPartLife<AnalysisState>::make()),
      files(SessionPartLife<FilesState>::make()),
      display(SessionPartLife<DisplayState>::make()),
      printing(SessionPartLife<PrintingState>::make()),
      html(SessionPartLife<HtmlState>::make()),
      shell(SessionPartLife<ShellState>::make()) {
    connectParts(*this);
}

namespace {
// The printer in force is, as a rule, the one the printing part opened and owns: nobody may be
// left holding it once the part goes.
void letGoOfPrinter(Ports& ports) {
    ports.printer = nullptr;
    ports.printerSurface = nullptr;
}
}  // namespace

// The members go in the reverse order, the higher parts first, as in renew; the ports last.
Session::~Session() { letGoOfPrinter(ports); }

// The higher parts go first, as at the end of a run, since one being destroyed may still write to
// the log of a lower one; then all are built from the ground up, as at the start. Each is built
// where the old one stood, so that what was held into a part stays valid. The other ports were
// put in by whoever runs the program, and stay.
void Session::renew() {
    letGoOfPrinter(ports);
    SessionPartLife<ShellState>::end(*shell);
    SessionPartLife<HtmlState>::end(*html);
    SessionPartLife<PrintingState>::end(*printing);
    SessionPartLife<DisplayState>::end(*display);
    SessionPartLife<FilesState>::end(*files);
    SessionPartLife<AnalysisState>::end(*analysis);
    SessionPartLife<SettingsState>::end(*settings);
    SessionPartLife<BaseState>::end(*base);
    SessionPartLife<BaseState>::begin(*base);
    SessionPartLife<SettingsState>::begin(*settings);
    SessionPartLife<AnalysisState>::begin(*analysis);
    SessionPartLife<FilesState>::begin(*files);
    SessionPartLife<DisplayState>::begin(*display);
    SessionPartLife<PrintingState>::begin(*printing);
    SessionPartLife<HtmlState>::begin(*html);
    SessionPartLife<ShellState>::begin(*shell);
    connectParts(*this);
}

// The program's own Session is never destroyed, so that nothing of it runs at exit (a large
// module's tables, tens of megabytes, go with the process whole). A part loaded beside the program
// holds a core of its own and installs its own Session.
void installProgramSession() {
    if (detail::current.session == nullptr) detail::current = detail::partsOf(new Session);
}

}  // namespace hlyd
