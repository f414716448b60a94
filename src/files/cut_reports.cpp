#include "files/cut_reports.h"

#include "base/c_log.h"
#include "files/files_state.h"
#include "files/main_window_model.h"

namespace hlyd {

struct CutReports {
    int told = 0;
    std::string last;
    CutListener listener;
};
HLYD_PRIVATE_PART(CutReports)

namespace {
CutReports& reports() { return *filesState().cutReports; }
}  // namespace

void tellCut(CutKind kind, const std::string& text) {
    ++reports().told;
    reports().last = text;
    theLog().LogData(text);
    mainWindow().lblStatus = text;
    if (reports().listener) reports().listener(kind, text);
}

int cutsTold() { return reports().told; }
const std::string& lastCut() { return reports().last; }

void setCutListener(CutListener listener) { reports().listener = std::move(listener); }

}  // namespace hlyd
