#include "shell/debug_menu.h"

#include <filesystem>

#include "base/app_info.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "files/main_window_model.h"
#include "files/output_guard.h"
#include "files/run_inputs.h"
#include "platform/ui.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

constexpr int kLogCreate = 1;
constexpr int kLogAppend = 2;

void openLog(bool forAppend) {
    if (std::optional<std::string> name = HlydMSOpenLogFile(forAppend))
        openLogChecked({*name, OutputKind::Log, "the Log File dialog"}, forAppend, {}, true);
}

void mnuDebugLogOpen_Click() { openLog(false); }
void mnuDebugOpenAppendLog_Click() { openLog(true); }
void mnuDebugLogClose_Click() { theLog().LogClose(); }

}  // namespace

std::optional<std::string> HlydMSOpenLogFile(bool forAppend) {
    FileDialogRequest request;
    request.title = "Log File";
    request.filter = "All Files|*.*|Log Files|*.LOG";
    const std::string& current = theLog().LogFileName();
    std::filesystem::path start = current.empty() ? std::filesystem::path(settingsDirectory()) / "DB_HLYD.LOG"
                                                  : std::filesystem::path(current);
    request.directory = start.parent_path().string();
    request.fileName = start.filename().string();
    if (!forAppend) return theUi().saveFileDialog(request);
    std::optional<std::vector<std::string>> chosen = theUi().openFileDialog(request);
    if (!chosen || chosen->empty()) return std::nullopt;
    return chosen->front();
}

bool openLogChecked(const OutputTarget& log, bool forAppend, const std::vector<std::string>& inputs, bool tell) {
    std::vector<std::string> reads = inputsOfThisRun();
    reads.insert(reads.end(), inputs.begin(), inputs.end());
    std::string refusal = outputRefusal(log, reads);
    if (refusal.empty()) {
        theLog().LogOpen(log.path, forAppend ? kLogAppend : kLogCreate);
        return true;
    }
    std::string text =
            "Unable to open Log-file\n\n" + theAppInfo().Title + " " + refusal + "\nLog-file messages will be queued";
    if (tell) showMessage(text, theAppInfo().Title + " Open Error", MsgButtons::OK, MsgIcon::Warning);
    logBlock(text);
    return false;
}

const std::vector<DebugMenuItem>& debugMenuItems() {
    static const std::vector<DebugMenuItem> items{
            {kMnuDebugLogOpen, "&Open Log File...", nullptr, mnuDebugLogOpen_Click},
            {kMnuDebugOpenAppendLog, "Open Log File to &Append...", nullptr, mnuDebugOpenAppendLog_Click},
            {kMnuDebugLogClose, "&Close Log File", nullptr, mnuDebugLogClose_Click},
            {kMnuDebugDisableErrorTraps, "Disable &Error Traps", &cDebug::DontTrapErrors, nullptr},
            {kMnuDebugDisableFixDataErrors, "Disable &Fixing of Data Errors", &cDebug::DontFixDataErrors, nullptr},
            {kMnuDebugTraceApp, "Trace &Application", &cDebug::TraceApplication, nullptr},
            {kMnuDebugLogEvents, "Log E&vents", &cDebug::TraceEvents, nullptr},
            {kMnuDebugMouseEvents, "Log &Mouse Events", &cDebug::TraceMouseMove, nullptr},
            {kMnuDebugLogClasses, "Log C&lasses", &cDebug::TraceClasses, nullptr},
            {kMnuDebugLogTracePackages, "Log &Packages", &cDebug::TracePackages, nullptr},
    };
    return items;
}

void mnuDebug_Click(const DebugMenuItem& item) {
    cDebug& d = theDebug();
    if (item.run) item.run();
    if (item.flag) d.*item.flag = !(d.*item.flag);
    if (item.flag == &cDebug::DontTrapErrors)
        theLog().LogData(std::string("DontTrapErrors=") + (d.DontTrapErrors ? "True" : "False"));
    sbDebugMenuSet();
}

void sbDebugMenuSet() {
    MainWindowModel& w = mainWindow();
    for (const DebugMenuItem& item : debugMenuItems()) {
        CommandState& c = w.command(item.name);
        c.caption = item.caption;
        c.checked = item.flag && theDebug().*item.flag;
    }
}

}  // namespace hlyd
