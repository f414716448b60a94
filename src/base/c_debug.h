#pragma once
// The switches that say what is traced, and the status of the last analysis call. One for the run.
#include <cstdint>

namespace hlyd {

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
void resetDebug();  // tests: back to the state of a new run

}  // namespace hlyd
