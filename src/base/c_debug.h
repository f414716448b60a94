#pragma once
// The switches that say what is traced, and the status of the last analysis call. One for the run.
#include <cstdint>

namespace hlyd {

// The values of BabStatus. Expected conditions travel in the status, not by exception; a caller
// reads it right after the call. Some values mean one thing to the analysis and another to the
// file handling, hence two names for 12.
constexpr std::int16_t kStatusOk = 0;
constexpr std::int16_t kStatusAlreadyInitialised = 1;  // BabInit ran before; nothing was done
constexpr std::int16_t kStatusNotInitialised = 2;      // an analysis call came before BabInit
constexpr std::int16_t kStatusBadArgument = 3;
constexpr std::int16_t kStatusReadingStopped = 4;    // for good: a fatal fault in the file or the keyword data
constexpr std::int16_t kStatusNotInTable = 5;        // a name is not in oFile
constexpr std::int16_t kStatusInternalFault = 6;     // told to the user; error 32000 follows
constexpr std::int16_t kStatusAssertionFailed = -6;  // written to the log only; error 32000 follows
constexpr std::int16_t kStatusFileNotFound = 7;      // validation could not open the file
constexpr std::int16_t kStatusCancelled = 8;         // the user cancelled, or nothing is left to do
constexpr std::int16_t kStatusInTable = 9;           // a name is in oFile
constexpr std::int16_t kStatusEndOfFile = 11;
constexpr std::int16_t kStatusDeviceGivenUp = 12;      // validation: the user gave up on a device fault
constexpr std::int16_t kStatusProjectUnreadable = 12;  // the detail is the error number
constexpr std::int16_t kStatusProjectSyntax = 13;
constexpr std::int16_t kStatusNoProjectMember = 19;  // not one member of a project exists
constexpr std::int16_t kStatusNotSource = 20;        // the first line is no Visual Basic source
constexpr std::int16_t kStatusInvalidToken = -1;
constexpr std::int16_t kStatusLineTooLong = -2;
constexpr std::int16_t kStatusLineTooComplex = -3;  // more tokens than the working array holds
constexpr std::int16_t kStatusTooManyTokens = -4;
constexpr std::int16_t kStatusKeywordFileMissing = -7;
constexpr std::int16_t kStatusKeywordFileUnreadable = -12;

// The values of BabStatusDetail that go with a status (elsewhere it carries a number of its own).
constexpr std::int16_t kDetailUnknownDialect = 1;  // with kStatusBadArgument
constexpr std::int16_t kDetailOutsideBounds = 23;  // with kStatusBadArgument
constexpr std::int16_t kDetailEmptyFile = 1;       // with kStatusReadingStopped from validation
constexpr std::int16_t kDetailReadFailure = 2;     // with kStatusReadingStopped from validation
constexpr std::int16_t kDetailNotSource = 1;       // with kStatusNotSource

class cDebug {
public:
    bool DontFixDataErrors = false;  // also: internal analysis faults are shown and stop the call
    bool DontTrapErrors = false;
    bool TraceApplication = false;
    bool TracePackages = false;
    bool TraceClasses = false;
    bool TraceOther = false;  // switched with the others; nothing reads it
    bool TraceEvents = false;
    bool TraceMouseMove = false;
    std::int16_t BabStatusDetail = 0;
    std::int16_t BabStatus = 0;

    void SetLogAll();
    void UnsetLogAll();

    void setStatus(int status, int detail) {
        BabStatus = static_cast<std::int16_t>(status);
        BabStatusDetail = static_cast<std::int16_t>(detail);
    }
};

cDebug& theDebug();

}  // namespace hlyd
