#include "platform/views.h"

namespace hlyd {

std::optional<bool> Views::showProjectFile(ProjectFileModel&) { return std::nullopt; }
std::optional<bool> Views::showPrintDialog(PrintDialogModel&) { return std::nullopt; }
std::optional<bool> Views::showPrintOptions(PrintOptionsModel&) { return std::nullopt; }
bool Views::showSelectProc(SelectProcModel&) { return false; }
void Views::showDisplayOptions(DisplayOptionsModel&) {}
void Views::printStatusChanged(const std::string&) {}
void Views::printStatusShown(bool) {}

Views& windowlessViews() {
    static Views none;
    return none;
}

void setViews(Views* views) { currentSession().ports.views = views ? views : &windowlessViews(); }

}  // namespace hlyd
