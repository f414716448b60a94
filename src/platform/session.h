#pragma once
// Everything the program's modules keep between calls, in one object. The modules reach their part
// through their usual accessors, which read the Session in force; a test makes its own Session and
// so starts from nothing, and a reset builds every part afresh, so no module can be forgotten.
//
// Each layer defines its own part and makes, renews and frees it in its own source; this header
// only names them, so that it sits below all of them and no reference, by include or by symbol,
// runs upward. The shell puts the parts together (shell/session.cpp).
#include <memory>

#include "platform/ports.h"

namespace hlyd {

// What a layer does with its part of the Session, where the part's type is whole: a layer's
// `<layer>_state.cpp` says `HLYD_SESSION_PART(Type)` once.
template <class T>
struct SessionPartLife {
    static T* make();
    static void free(T* part);
    static void end(T& part);    // destroys it where it stands ...
    static void begin(T& part);  // ... and builds it there afresh
    struct Deleter {
        void operator()(T* part) const { free(part); }
    };
};

template <class T>
using SessionPart = std::unique_ptr<T, typename SessionPartLife<T>::Deleter>;

// The argument names a type, which parentheses would turn into an expression.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define HLYD_SESSION_PART(Type)                     \
    template <>                                     \
    Type* SessionPartLife<Type>::make() {           \
        return new Type;                            \
    }                                               \
    template <>                                     \
    void SessionPartLife<Type>::free(Type* part) {  \
        delete part;                                \
    }                                               \
    template <>                                     \
    void SessionPartLife<Type>::end(Type& part) {   \
        std::destroy_at(&part);                     \
    }                                               \
    template <>                                     \
    void SessionPartLife<Type>::begin(Type& part) { \
        std::construct_at(&part);                   \
    }
// NOLINTEND(bugprone-macro-parentheses)

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
    // by value, stays valid and sees the fresh state. The ports stay as they were put in, except
    // the printer in force, which a part owns.
    void renew();

    // Declared first, so that they outlast the parts, which may still use them as they go.
    Ports ports;

    // From the ground up, and built in this order: a part may read a lower one as it starts.
    SessionPart<BaseState> base;
    SessionPart<SettingsState> settings;
    SessionPart<AnalysisState> analysis;
    SessionPart<FilesState> files;
    SessionPart<DisplayState> display;
    SessionPart<PrintingState> printing;
    SessionPart<HtmlState> html;
    SessionPart<ShellState> shell;
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
// Constant-initialised to null, so that it depends on no order of static constructors; the shell
// installs the program's own Session at start (installProgramSession).
extern constinit CurrentParts current;

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
