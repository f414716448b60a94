#pragma once
// The plain-text log: trace lines with elapsed milliseconds and call depth. Until a file is open,
// lines wait in a ring of 100 so that the start of a run is not lost.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/os.h"

namespace hlyd {

class cLog {
public:
    cLog();
    ~cLog();
    cLog(const cLog&) = delete;
    cLog& operator=(const cLog&) = delete;

    void GenerateLogHeader();
    void LogClose();
    void LogData(const std::string& text);
    void LogEnd();
    const std::string& LogFileName() const { return logFileName; }
    void setLogFileName(const std::string& name) { logFileName = name; }
    void LogGetProcs(std::string& result);
    void LogOpen(const std::string& fileName, int mode);  // mode 1 creates, any other appends
    void LogTraceEnter(const std::string& proc, const std::string& cls = {}, const std::string& info = {});
    void LogTraceExit(const std::string& proc, const std::string& cls = {}, const std::string& info = {});
    void setQueueing(bool on) { queueing = on; }

    bool isOpen() const { return file.isOpen(); }
    int depth() const { return callDepth; }

private:
    static constexpr int kQueueSize = 100;
    void writeLine(const std::string& line);
    void emitQueue();
    std::string traceText(const std::string& proc, const char* mark, const std::string& cls,
                          const std::string& info) const;

    os::OutputFile file;  // only a regular file: a FIFO named as the log must not stop the start
    std::string logFileName;
    std::vector<std::string> callStack;
    int callDepth = 0;
    std::array<std::string, kQueueSize + 1> queue;  // positions 1 to 100
    int queuePosition = 0;
    bool queueing = true;
    std::int64_t startTicks = 0;
};

cLog& theLog();

// A message that must stand out: "=====>", the text, "<=====", as one log entry.
void logBlock(const std::string& text);

// Writes the enter line at construction and the exit line at destruction, when the switch is on.
// Nothing is formatted when it is off: the test is the whole cost.
class TraceScope {
public:
    TraceScope(bool on, const char* proc) : proc_(on ? proc : nullptr) {
        if (proc_) theLog().LogTraceEnter(proc_);
    }
    ~TraceScope() {
        if (proc_) theLog().LogTraceExit(proc_);
    }
    TraceScope(const TraceScope&) = delete;
    TraceScope& operator=(const TraceScope&) = delete;

private:
    const char* proc_;
};

}  // namespace hlyd
