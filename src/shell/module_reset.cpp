#include "shell/module_reset.h"

#include "analysis/basiclan_state.h"
#include "display/connectors.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "display/view_find.h"
#include "display/view_map.h"
#include "display/view_selection.h"
#include "display/viewing.h"
#include "files/cut_reports.h"
#include "files/file_selection.h"
#include "files/file_table.h"
#include "files/navigation.h"
#include "files/open_file_texts.h"
#include "files/project_choice.h"
#include "files/project_file.h"
#include "printing/contents.h"
#include "printing/page_change.h"
#include "printing/print_state.h"
#include "printing/print_dialog.h"
#include "printing/print_status.h"
#include "settings/profile_file.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/error_tail.h"
#include "shell/error_report.h"
#include "files/main_window_model.h"

namespace hlyd {

namespace {

void resetDiagnostics() {
    resetDebug();
    resetLog();
    setCurrentFileNameSource(nullptr);
    setProgramEnd(nullptr);
    setErrorTail(nullptr);
}

void resetSettingsState() {
    resetSettings();  // with the element attributes and the page settings
    clearProfileCache();
    localeTexts() = LocaleTexts{};
}

void resetFilesAndAnalysis() {
    resetBasiclan();
    resetSourceTables();
    resetFileTable();
    resetProjectFiles();
    resetProjectFileDialog();
    resetFileSelection();
    resetNavigation();
    resetCutReports();
    resetOpenFileTexts();
}

void resetDisplay() {
    resetMainWindow();
    resetEmitterState();
    resetConnectorStack();
    resetLayoutMetrics();
    resetViewingState();
    resetViewMap();
    resetViewSelection();
    resetFindState();
}

void resetPrinting() {
    resetPrintState();
    resetPageChange();
    resetTOC();
    resetPrintStatus();
    resetPrintDialogs();
}

}  // namespace

void resetModuleState() {
    resetDiagnostics();
    resetSettingsState();
    resetFilesAndAnalysis();
    resetDisplay();
    resetPrinting();
    resetHlydMain();
    resetCommandLineJob();
}

}  // namespace hlyd
