#include "shell/batch_cuts.h"

#include "files/cut_reports.h"
#include "shell/command_line_job.h"

namespace hlyd {

CutsToStandardError::CutsToStandardError() {
    setCutListener([this](CutKind kind, const std::string& text) {
        if (kind == CutKind::MemberMissing || !told_.insert(text).second) return;
        failJob(kExitLeftOut, text);
    });
}

CutsToStandardError::~CutsToStandardError() { setCutListener(nullptr); }

}  // namespace hlyd
