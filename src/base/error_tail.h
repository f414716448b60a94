#pragma once
// The common error tail of a procedure: an unexpected failure is reported with the procedure's
// name and ends the program. The report lives in the shell, above every module that needs the
// tail, so the shell installs it here; until it does, failures go on up to the caller.
#include <functional>
#include <string>

namespace hlyd {

using ErrorReporter = std::function<void(int number, const std::string& description, const std::string& source,
                                         const std::string& where)>;

// Runs `body`; unless DontTrapErrors lets failures through to the platform, one goes to
// `report` with `where`.
void trapInto(const std::string& where, const std::function<void()>& body, const ErrorReporter& report);

// The report of the common tail; empty puts failures back on their way up.
void setErrorTail(ErrorReporter report);

// Runs `body` under the common tail; the report names the procedure and the source line
// ("cHeadings::Add line: 42").
void withErrorTail(const char* procedure, int line, const std::function<void()>& body);

}  // namespace hlyd
