#include "files/navigation.h"

#include <algorithm>

#include "analysis/source_model.h"
#include "base/c_debug.h"
#include "files/file_table.h"
#include "files/files_state.h"
#include "files/main_window_model.h"
#include "platform/ui.h"

namespace hlyd {

namespace {
constexpr std::int32_t kCaptionJump = 26;  // smaller jumps would make the caption flicker
constexpr std::int32_t kStatusEvery = 50;
}  // namespace

NavigationState& navigation() { return filesState().navigation; }

void HlydCFGetRecord(std::int32_t& record, std::string& control) {
    const SourceTables& t = theSourceTables();
    bool wasEnd = record == -1;
    if (wasEnd) record = t.RecordCount;
    if (record == 1) navigation().emitterPassFlag = 0;
    if ((record > t.RecordCount || wasEnd) && t.Records.UBound() >= 0 && record - t.RecordCount >= kCaptionJump)
        control = "Line:" + std::to_string(t.RecordCount);
    if (navigation().runState == kRunCancelled) {
        theDebug().BabStatus = kStatusCancelled;
        theUi().setBusy(false);
    }
}

void HlydPCGetNext(std::int32_t& record) {
    const SourceTables& t = theSourceTables();
    MainWindowModel& w = mainWindow();
    std::int32_t lastShown = record;
    w.disableControls();
    theUi().setBusy(true);
    for (;;) {
        if (record > lastShown + kStatusEvery) {
            w.lblStatus = "Line:" + std::to_string(record);
            lastShown = record;
        }
        ++record;
        HlydCFGetRecord(record, w.lblRecord);
        if (record > t.RecordCount || t.Records[record].FirstT == 0) break;
        if (t.Statements[t.Records[record].FirstS].Flags.has(StatementFlag::ProcListingStart) ||
            navigation().stopRequested)
            break;
    }
    w.enableControls();
    theUi().setBusy(false);
}

// The last entry whose start lies at or before the record (or before the procedure a tied
// comment belongs to); entries stand in file order, so their starts only grow.
void HlydPCGetAssociatedProc(std::int32_t record, std::int32_t& which) {
    const SourceTables& t = theSourceTables();
    const std::vector<ProcEntry>& procs = yProc();
    std::int32_t tiedTo = record >= 0 && record <= t.Records.UBound() ? t.Records[record].TiedTo : 0;
    std::int32_t reach = std::max(record, tiedTo);
    auto after = std::upper_bound(procs.begin() + 1, procs.end(), reach,
                                  [](std::int32_t value, const ProcEntry& p) { return value < p.FirstRecord; });
    which = static_cast<std::int32_t>(after - procs.begin() - 1);
}

}  // namespace hlyd
