#include "dialogs/window_views.h"

#include <QDialog>

#include "dialogs/display_options_dialog.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/print_dialogs.h"
#include "dialogs/print_options_dialog.h"
#include "dialogs/project_file_dialog.h"

namespace hlyd {

WindowViews::WindowViews(HlydWindow& window) : window_(window), status_(makePrintStatusForm(&window)) {}

void WindowViews::present() { window_.presentView(); }

std::optional<bool> WindowViews::showProjectFile(ProjectFileModel& m) { return showProjectFileForm(&window_, m); }

std::optional<bool> WindowViews::showPrintDialog(PrintDialogModel& m) { return showPrintForm(&window_, m); }

std::optional<bool> WindowViews::showPrintOptions(PrintOptionsModel& m) { return showPrintOptionsForm(&window_, m); }

bool WindowViews::showSelectProc(SelectProcModel& m) { return showSelectForm(&window_, m); }

void WindowViews::showDisplayOptions(DisplayOptionsModel& m) { showDisplayOptionsForm(&window_, m); }

void WindowViews::printStatusChanged(const std::string&) {
    if (status_) refreshPrintStatusForm(*status_);
}

void WindowViews::printStatusShown(bool shown) {
    if (status_) setPrintStatusFormShown(*status_, shown);
}

}  // namespace hlyd
