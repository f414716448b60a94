#include "base/error_tail.h"

#include "base/base_state.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"

namespace hlyd {

void trapInto(const std::string& where, const std::function<void()>& body, const ErrorReporter& report) {
    if (theDebug().DontTrapErrors) return body();
    try {
        body();
    } catch (const HlydError& e) {
        report(e.Number, e.Description, e.Source, where);
    } catch (const std::exception& e) {
        report(5, e.what(), "", where);
    }
}

void setErrorTail(ErrorReporter report) { baseState().errorTail = std::move(report); }

void withErrorTail(const char* procedure, int line, const std::function<void()>& body) {
    const ErrorReporter& installed = baseState().errorTail;
    if (!installed) return body();
    trapInto(std::string(procedure) + " line: " + std::to_string(line), body, installed);
}

}  // namespace hlyd
