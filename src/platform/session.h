#pragma once
// Everything the program's modules keep between calls, in one object. The modules reach their part
// through their usual accessors, which read the Session in force; a test makes its own Session and
// so starts from nothing, and a reset builds every part afresh, so no module can be forgotten.
//
// Each layer defines its own part; this header only names them, so that it sits below all of them
// and no include runs upward. The parts are built and destroyed where all of them are known
// (shell/session.cpp).
#include <memory>

namespace hlyd {

struct BaseState;
struct SettingsState;
struct AnalysisState;
struct FilesState;
struct DisplayState;
struct PrintingState;
struct HtmlState;
struct ShellState;

struct Session {
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Builds every part afresh where it stands: a reference to a part, or to anything a part holds
    // by value, stays valid and sees the fresh state.
    void renew();

    // From the ground up, and built in this order: a part may read a lower one as it starts.
    std::unique_ptr<BaseState> base;
    std::unique_ptr<SettingsState> settings;
    std::unique_ptr<AnalysisState> analysis;
    std::unique_ptr<FilesState> files;
    std::unique_ptr<DisplayState> display;
    std::unique_ptr<PrintingState> printing;
    std::unique_ptr<HtmlState> html;
    std::unique_ptr<ShellState> shell;
};

// Builds an object afresh where it stands, for state that cannot be assigned (it holds an open
// file, say): what refers to it stays valid and sees the fresh object.
template <class T>
void renewInPlace(T& object) {
    std::destroy_at(&object);
    std::construct_at(&object);
}

namespace detail {
// The Session in force and its parts, kept side by side so that an accessor read per token costs
// one load, as the module's own global did. A part is renewed where it stands, so these stay valid.
struct CurrentParts {
    Session* session = nullptr;
    BaseState* base = nullptr;
    SettingsState* settings = nullptr;
    AnalysisState* analysis = nullptr;
    FilesState* files = nullptr;
    DisplayState* display = nullptr;
    PrintingState* printing = nullptr;
    HtmlState* html = nullptr;
    ShellState* shell = nullptr;
};
extern CurrentParts current;

inline CurrentParts partsOf(Session* session) {
    return {session,
            session->base.get(),
            session->settings.get(),
            session->analysis.get(),
            session->files.get(),
            session->display.get(),
            session->printing.get(),
            session->html.get(),
            session->shell.get()};
}
}  // namespace detail

// The Session the modules' accessors read. The program's own lives as long as the process.
inline Session& currentSession() { return *detail::current.session; }

// Makes a Session current until the object goes; the one before is current again after it.
class SessionScope {
public:
    explicit SessionScope(Session& session) : previous_(detail::current.session) {
        detail::current = detail::partsOf(&session);
    }
    ~SessionScope() { detail::current = detail::partsOf(previous_); }
    SessionScope(const SessionScope&) = delete;
    SessionScope& operator=(const SessionScope&) = delete;

private:
    Session* previous_;
};

}  // namespace hlyd
