#include "base/c_log.h"

#include <cstring>
#include <memory>

#include "base/app_info.h"
#include "base/base_state.h"
#include "base/text_format.h"
#include "platform/clock.h"
#include "platform/ui.h"

namespace hlyd {

namespace {
bool startsWith(const std::string& s, const char* prefix) { return s.compare(0, std::strlen(prefix), prefix) == 0; }
}  // namespace

cLog& theLog() {
    std::unique_ptr<cLog>& log = baseState().log;
    if (!log) log = std::make_unique<cLog>();
    return *log;
}

void logBlock(const std::string& text) { theLog().LogData("=====>\n" + text + "\n<====="); }

cLog::cLog() : callStack(101), startTicks(theClock().ticksMs()) {
    std::time_t now = theClock().now();
    LogData("cLog.cls Version 1 Dated 8/27/98\n Date =" + formatDate(now) + " Time =" + formatTime(now) +
            "\n Timer =" + std::to_string(theClock().ticksMs() - startTicks));
}

cLog::~cLog() { LogClose(); }

void cLog::LogData(const std::string& text) {
    std::string line;
    if (startsWith(text, "->")) {
        ++callDepth;
        if (callDepth >= static_cast<int>(callStack.size())) callStack.resize(callStack.size() + 50);
        callStack[callDepth] = text;
    } else if (startsWith(text, "<-")) {
        if (callDepth > 0) --callDepth;
    }
    if (startsWith(text, "->") || startsWith(text, "<-")) {
        line = zeroPad(theClock().ticksMs() - startTicks, 7) + ", " + zeroPad(callDepth, 3) + ", " + text;
    } else {
        line = " " + text;
    }
    writeLine(line);
}

void cLog::writeLine(const std::string& line) {
    if (file.isOpen()) {
        file.write(line);
        file.write("\n");
        return;
    }
    if (!queueing) return;
    queuePosition = queuePosition >= kQueueSize ? 1 : queuePosition + 1;
    queue[queuePosition] = line;
}

std::string cLog::traceText(const std::string& proc, const char* mark, const std::string& cls,
                            const std::string& info) const {
    std::string text = proc;
    if (proc.size() > 1 && !startsWith(proc, mark)) text = mark + proc;
    if (!cls.empty()) text += ": " + cls;
    if (!info.empty()) text += ": " + info;
    return text;
}

void cLog::LogTraceEnter(const std::string& proc, const std::string& cls, const std::string& info) {
    LogData(traceText(proc, "->", cls, info));
}

void cLog::LogTraceExit(const std::string& proc, const std::string& cls, const std::string& info) {
    LogData(traceText(proc, "<-", cls, info));
}

void cLog::LogOpen(const std::string& fileName, int mode) {
    if (!fileName.empty()) logFileName = fileName;
    const cAppInfo& app = theAppInfo();
    if (logFileName.empty()) logFileName = app.Path + "/" + app.EXEName + ".LOG";
    file.close();  // the queue stays: it is what the new file must receive
    if (int reason = file.open(logFileName, mode != 1); reason != 0) {
        std::string text = "Unable to open Log-file\n\n" + logFileName + " due to the following error:\n" +
                           os::errorText(reason) + "\nLog-file messages will be queued";
        MessageBoxRequest box{text, app.Title + " Open Error", MsgButtons::OK, MsgIcon::Warning, 1};
        theUi().messageBox(box);
        logBlock(text);
        return;
    }
    GenerateLogHeader();
    emitQueue();
}

void cLog::emitQueue() {
    if (queuePosition == 0 && queue[kQueueSize].empty()) return;
    writeLine(" -----Emitting Queued Messages-----");
    for (int i = queuePosition + 1; i <= kQueueSize && !queue[i].empty(); ++i) writeLine(queue[i]);
    for (int i = 1; i <= queuePosition; ++i) writeLine(queue[i]);
    writeLine(" -----End Emitting Queued Messages-----");
    for (auto& line : queue) line.clear();
    queuePosition = 0;
}

void cLog::GenerateLogHeader() {
    const cAppInfo& app = theAppInfo();
    LogData("=====> " + app.Title + " " + app.Version + "\n" + app.Path + "/" + app.EXEName + "\n<=====");
    LogData("Logfile " + logFileName + " Created " + formatTimestamp(theClock().now(), "yyyy/mm/dd hh:mm:ss"));
}

void cLog::LogClose() {
    file.close();
    queuePosition = 0;
}

void cLog::LogEnd() {
    std::time_t now = theClock().now();
    LogData("Date=" + formatDate(now) + " Time=" + formatTime(now) +
            " Timer=" + std::to_string(theClock().ticksMs() - startTicks));
    LogClose();
}

void cLog::LogGetProcs(std::string& result) {
    result.clear();
    if (callDepth <= 0) return;
    LogData("Procedure Call-list...");
    result = "Procedure Call-list...";
    // Written as plain lines: the entries begin with "->", and as traces they would deepen the stack.
    for (int i = 1; i <= callDepth && i < static_cast<int>(callStack.size()); ++i) {
        writeLine(" " + callStack[i]);
        result += "\n" + callStack[i];
    }
}

}  // namespace hlyd
