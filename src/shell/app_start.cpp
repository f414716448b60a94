#include "shell/app_start.h"

#include <chrono>
#include <thread>

#include "analysis/basiclan.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/error_tail.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "display/font_metrics.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/mru.h"
#include "platform/clock.h"
#include "platform/os.h"
#include "platform/printer.h"
#include "platform/surface.h"
#include "printing/printer_start.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "shell/command_line.h"
#include "shell/command_line_job.h"
#include "shell/command_status.h"
#include "shell/debug_menu.h"
#include "shell/error_report.h"
#include "shell/help_commands.h"
#include "shell/shell_state.h"
#include "shell/start_mode.h"
#include "shell/window_commands.h"

namespace hlyd {

namespace {

HlydMainState& mainState() { return shellState().main; }
WindowedRun windowHooks;

// The splash is a greeting, not a wait: eight seconds of it kept users from a window that was
// ready, so it stands for a second at most.
constexpr std::int64_t kSplashMilliseconds = 1000;

long secondsSinceMidnight(std::time_t t) {
    std::tm tm = localTime(t);
    return tm.tm_hour * 3600L + tm.tm_min * 60L + tm.tm_sec;
}

// The keyword file's own failures have told the user already; the run goes on without keywords,
// or, when the file is missing, Main ends it.
void initKeywords() {
    try {
        BabInit();
    } catch (const HlydError& e) {
        int status = theDebug().BabStatus;
        bool told = status == kStatusKeywordFileMissing || status == kStatusReadingStopped ||
                    status == kStatusKeywordFileUnreadable;
        if (e.Number != kInternalError || !told) throw;
    }
}

// The log the settings ask for, unless it would write over a file of the user's. A run without a
// window tells the refusal with its other outputs and fails the job there.
void openSettingsLog() {
    std::optional<OutputTarget> log = logOutput();
    if (!log) return;
    std::string named = commandLineFileName(mainState().CommandLine);
    std::vector<std::string> inputs;
    if (!named.empty()) inputs.push_back(os::absolutePath(named));
    openLogChecked(*log, false, inputs, mainState().StartMode != kStartCommandLineFile);
}

void clearPerRunState() {
    resetFileTable();
    setCurrentFileNameSource([] {
        const FileTableModule& f = fileTable();
        bool current = f.oFile.Count() > 0 && f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count();
        return current ? f.oFile.Item(f.wCurrentFile).FileName : std::string();
    });
    SourceTables& tables = theSourceTables();
    tables.Records.redim(0);
    tables.RecordCount = tables.StatementCount = tables.TokenCount = 0;
}

// A command-line run that only exports HTML never prints, and one that names its printer (the PDF
// printer among them) sets that one up itself: asking the print service for the settings' printer
// would cost such a run most of its time, and could only tell of a printer it never uses.
bool printerWanted() {
    if (mainState().StartMode != kStartCommandLineFile) return true;
    const BatchOptions& options = commandLineJob().options;
    return runPrints(options) && options.pdfOut.empty() && options.printer.empty();
}

std::vector<FontSpec> displayFonts() {
    std::vector<FontSpec> fonts;
    for (int e = 1; e <= kElementCount; ++e) fonts.push_back(displayAttributes().Elements[e].slot[kDisplay].Font);
    return fonts;
}

bool sameFonts(const std::vector<FontSpec>& a, const std::vector<FontSpec>& b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i].Name != b[i].Name || a[i].Size != b[i].Size || a[i].Bold != b[i].Bold || a[i].Italic != b[i].Italic ||
            a[i].Underline != b[i].Underline || a[i].Strikethrough != b[i].Strikethrough)
            return false;
    return true;
}

// The settings name fonts of another desktop; what the screen lacks is replaced, and the
// replacement is saved so that the next start agrees with this one.
void validateSettingsFonts() {
    if (!displaySurface()) return;
    std::vector<FontSpec> before = displayFonts();
    HlydDAValidateFonts();
    if (sameFonts(before, displayFonts())) return;
    sbDisplayINISave();
    sbPrintOptionsINISave();
    sbPrintINISave();
}

// The window is shown before the splash's wait is over, and the start goes on after it (the Open
// dialog). A command started meanwhile would be overtaken by that start, so the commands wait
// until the window is ready, as during any long operation.
void loadMainWindowHidden() {
    if (!windowHooks.active()) return;
    windowHooks.loadMainWindow();
    sbSetToolBar();
    mainWindow().disableControls();
}

// The splash stays up this long in a standalone start, unless the user dismisses it: a key or a
// click says the splash has been seen.
void waitForSplash() {
    auto elapsed = [] { return theClock().ticksMs() - mainState().StartTicks; };
    while (!mainState().SplashWaitEnded && elapsed() < kSplashMilliseconds) {
        theUi().processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

// The rest of Main for a run with a window: splash, wait, window in front, the Open dialog.
int finishWindowedStart() {
    std::int32_t mode = mainState().StartMode;
    if (mode != kStartCommandLineFile && windowHooks.raiseSplash) windowHooks.raiseSplash();
    if (theDebug().BabStatus == kStatusKeywordFileMissing) {
        if (windowHooks.unloadForms) windowHooks.unloadForms();
        mainState().ApplicationEnding = true;
        return 1;
    }
    if (mode != kStartCommandLineFile && !mainState().ApplicationEnding) {
        if (mode == kStartStandalone) waitForSplash();
        windowHooks.showMainWindow();
    }
    if (windowHooks.closeSplash) windowHooks.closeSplash();
    if (!mainState().ApplicationEnding) mainWindow().enableControls();
    theUi().setBusy(false);
    bool interactive = mode == kStartStandalone || mode == kStartIdeMode;
    if (!interactive || mainState().ApplicationEnding) return 0;
    const std::vector<std::string>& named = commandLineJob().options.openFiles;
    if (!named.empty()) openNamedFiles(named);
    else if (hlydSettings().ShowOpenDialog) mnuFilOpen_Click();
    // The first files are loaded outside any command: their progress would stay on the status bar.
    settleStatusAfterCommand();
    theUi().processEvents();
    return 0;
}

// The files of the batch options, or, for a start without them, the one name of the classic
// command line.
void processCommandLineFile() {
    std::vector<std::string> names = commandLineJob().options.files;
    if (names.empty()) {
        std::string name = commandLineFileName(mainState().CommandLine);
        if (name.empty()) return;
        names.push_back(name);
    }
    HlydCMProcess(names);
    HlydMNTerminateApp();
}

}  // namespace

WindowedRun& windowedRun() { return windowHooks; }
void endSplashWait() { mainState().SplashWaitEnded = true; }
HlydMainState& hlydMain() { return mainState(); }

void InitApp() {
    trapErrors("InitApp", [] {
        const cAppInfo& app = theAppInfo();
        theLog().LogData("AppVersion =" + app.Version + " " + app.VersionDate);
        queryLocaleSeparators();
        mainState().HelpFile = helpIndexPath();
        mainState().ElementClassNames = {"Display",  "Print",           "Comments",     "Identifiers", "KeyWords",
                                         "Literals", "Headers/Footers", "Project File", "Procedures",  "Line Numbers"};
        loadSettingsAtStartup();
        openSettingsLog();
        TraceScope trace(theDebug().TraceApplication, "InitApp");
        theLog().LogData("HLYD.BI Version 88 Dated 31-Aug-95\n hlyd.bm Version 35 Dated 31-Aug-95");
        if (printerWanted() && (!hlydSettings().CurrentPrinter.empty() || !GetDefaultPrinter().empty())) InitPrinter();
        initKeywords();
        clearPerRunState();
        hlydSettings().MetricUnits = fbIsMetric();
        GetMRU();
        loadMainWindowHidden();
        validateSettingsFonts();
    });
}

void HLYDStart() {
    trapErrors("HLYDStart", [] {
        theDebug().setStatus(kStatusOk, 0);
        InitApp();
        if (theDebug().BabStatus == kStatusKeywordFileMissing) return;
        std::int32_t mode = mainState().StartMode;
        if (mode == kStartStandalone || mode == kStartCommandLineFile || mode == kStartIdeMode) HLYDShow();
        theUi().processEvents();
    });
}

void HLYDShow() {
    trapErrors("HLYDShow", [] {
        theDebug().setStatus(kStatusOk, 0);
        if (windowHooks.active()) {
            if (mainState().StartMode != kStartCommandLineFile) windowHooks.showMainWindow();
            else windowHooks.hideMainWindow();
        }
        theUi().processEvents();
        if (mainState().StartMode != kStartAutomation) processCommandLineFile();
        theUi().processEvents();
    });
}

void HlydMNTerminateApp() {
    if (windowHooks.storeWindowState) windowHooks.storeWindowState();
    saveWindowState();
    if (windowHooks.hideMainWindow) windowHooks.hideMainWindow();
    std::int32_t mode = mainState().StartMode;
    if (mode == kStartStandalone || mode == kStartCommandLineFile) HLYDEndApplication();
}

void HLYDEndApplication() {
    // Only the window and printer state change outside the dialogs' own saves; a run without a
    // print system (the HTML export on the core) changes no printer state, and building the keys
    // to find that out was an eighth of a small file's run.
    if (printerSystem() != nullptr) savePrinterState();
    mainState().ApplicationEnding = true;
    if (windowHooks.unloadForms) windowHooks.unloadForms();
    theLog().LogEnd();
}

int Main(const std::string& commandLine, std::int32_t platformMode) {
    mainState().CommandLine = commandLine;
    mainState().StartMode = decideStartMode(platformMode, commandLine);
    // Modules below the shell report their unexpected failures through the same tail.
    setErrorTail(ERHandler);
    theLog();
    theDebug();
    mainState().StartTime = secondsSinceMidnight(theClock().now());
    mainState().StartTicks = theClock().ticksMs();
    if (mainState().StartMode == kStartInit) return 0;
    if (windowHooks.active()) theUi().setBusy(true);
    if (windowHooks.showSplash && mainState().StartMode != kStartCommandLineFile) {
        sbGetINIUser();
        windowHooks.showSplash(hlydSettings().UserName, hlydSettings().UserCompany);
    }
    HLYDStart();
    if (windowHooks.active()) return finishWindowedStart();
    if (theDebug().BabStatus == kStatusKeywordFileMissing) return 1;
    // Without a window the standalone run has nothing to wait for; it ends as the window would.
    if (mainState().StartMode == kStartStandalone && !mainState().ApplicationEnding) HlydMNTerminateApp();
    return 0;
}

}  // namespace hlyd
