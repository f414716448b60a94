#pragma once
// The report of an unexpected failure: composed for the user and for the log, then the end.
#include <cstdint>
#include <ctime>
#include <functional>
#include <string>

namespace hlyd {

struct ErrorReportInput {
    int number = 0;
    std::string description;
    std::string source;
    std::string where;  // procedure name, " line: " and the line number
    std::int16_t babStatus = 0;
    std::int16_t babStatusDetail = 0;
    std::string processingFile;  // empty when no file is current
    std::int32_t recordCount = 0;
    std::int32_t statementCount = 0;
    std::int32_t tokenCount = 0;
    std::string callList;  // from the log's call stack
    std::string userName;
    std::string userCompany;
    std::string systemVersion;
    std::string currentPrinter;
    std::time_t recordedAt = 0;
};

struct ErrorReport {
    std::string text;     // what the user sees
    std::string logText;  // what goes to the log in one block
};

ErrorReport composeErrorReport(const ErrorReportInput& input);

// The line number that a Where text carries after " line: ", 0 when none.
long lineNumberOf(const std::string& where);

// The operating system and its release, for the report.
std::string systemVersionText();

// The name of the current file, for the report; the file table installs it.
void setCurrentFileNameSource(std::function<std::string()> source);

// The common tail of a procedure: an unexpected failure of `body` goes to ERHandler with
// `where`, unless the debug switch lets it through to the platform.
void trapErrors(const char* where, const std::function<void()>& body);

// How the program ends after a report. The process exits unless another end is put in; a test
// puts in one that throws, so that a trapped fault can be followed without ending the test's
// process. An empty one puts the exit back.
void setProgramEnd(std::function<void(int exitCode)> end);

// Composes and shows the report, writes the log, and ends the program. Does not return.
// After a report in a run started with "/idemode": Yes stops the program where a debugger sees it.
bool askToStopForDebugging();

[[noreturn]] void ERHandler(int number, const std::string& description, const std::string& source,
                            const std::string& where);

}  // namespace hlyd
