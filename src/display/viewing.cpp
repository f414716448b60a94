#include "display/display_state.h"
#include "display/viewing.h"

#include <algorithm>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "display/command_states.h"
#include "display/screen_emitter.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

ViewingState& viewing() { return displayState().viewing; }
constexpr const char* kMoreProcedures = " ...";

[[noreturn]] void procListAssertion(const SortedListModel& list, const std::string& text) {
    logBlock(
            " -- Assertion Failure\nListIndex > UBound(colProc) and either ListCount <= 2 or Value <> | ...|\nListIndex =" +
            std::to_string(list.ListIndex) + "\nListCount =" + std::to_string(list.ListCount()) +
            "\nUBound(colProc) =" + std::to_string(static_cast<int>(yProc().size()) - 1) + "\nValue =|" + text + "|");
    theDebug().BabStatus = kStatusAssertionFailed;
    raiseInternal("cboProc_Click");
}

void showFrom(std::int32_t record) { HlydDSEmitRequestedData(record); }

int findProcByListIndex(int listIndex) {
    const std::vector<ProcEntry>& procs = yProc();
    for (std::size_t i = 0; i < procs.size(); ++i)
        if (procs[i].ListIndex == listIndex) return static_cast<int>(i);
    return -1;
}

}  // namespace

ViewingState& viewingState() { return viewing(); }

void setScrollValue(int value) {
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    value = std::clamp(value, bar.Min, std::max(bar.Min, bar.Max));
    if (bar.Value == value) return;
    bar.Value = value;
    vsbDisplay_Change();
}

void picShow_KeyDown(int keyCode, int shift) {
    const ScrollBarModel bar = mainWindow().vsbDisplay;
    bool ctrl = shift == kShiftCtrl;
    switch (keyCode) {
        case kKeyUp:
            if (bar.Value > bar.Min) setScrollValue(bar.Value - 1);
            break;
        case kKeyDown:
            if (bar.Value < bar.Max) setScrollValue(bar.Value + 1);
            break;
        case kKeyPageUp:
            if (ctrl) mnuViewProc_Click(1);
            else if (bar.Value > bar.Min) setScrollValue(std::max(bar.Min, bar.Value - bar.LargeChange));
            break;
        case kKeyPageDown:
            if (ctrl) mnuViewProc_Click(0);
            else if (bar.Value < bar.Max) setScrollValue(std::min(bar.Max, bar.Value + bar.LargeChange));
            break;
        case kKeyHome: setScrollValue(bar.Min); break;
        case kKeyEnd: setScrollValue(bar.Max); break;
        default: break;
    }
}

void vsbDisplay_Change() {
    if (viewing().InScroll) return;
    viewing().InScroll = true;
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    std::int32_t which = bar.Value;
    if (bar.Value == bar.Max) {
        which = -1;
        viewing().NotAtEnd = false;
    } else {
        viewing().NotAtEnd = true;
    }
    const std::int32_t specified = which;
    HlydDSEmitRequestedData(which);
    if (specified == -1 || which != specified) {
        if (which < bar.Min) bar.Value = bar.Min;
        else if (which < specified) bar.Value = specified;
        else if (specified == -1) bar.Value = bar.Max;
        else bar.Value = which;
    }
    viewing().InScroll = false;
}

void cboProc_Click() {
    if (!emitterState().ProcListSync) return;
    SortedListModel& list = mainWindow().cboProc;
    int position = findProcByListIndex(list.ListIndex);
    if (position < 0) {
        std::string text = list.ListIndex >= 0 && list.ListIndex < list.ListCount() ? list.List(list.ListIndex) : "";
        if (text != kMoreProcedures || list.ListCount() < 2) procListAssertion(list, text);
        int before = findProcByListIndex(list.ListIndex - 1);
        std::int32_t record = before >= 0 ? yProc()[before].FirstRecord : 1;
        HlydPCGetNext(record);
        if (list.ListIndex >= list.ListCount()) {
            emitterState().ProcListSync = false;
            list.ListIndex = list.ListCount() - 1;
            emitterState().ProcListSync = true;
        }
        position = findProcByListIndex(list.ListIndex);
    }
    if (position >= 0 && position < static_cast<int>(yProc().size())) showFrom(yProc()[position].FirstRecord);
}

void mnuViewProc_Click(int index) {
    std::int32_t which = 0;
    HlydPCGetAssociatedProc(emitterState().FirstRecord, which);
    SortedListModel& list = mainWindow().cboProc;
    const std::vector<ProcEntry>& procs = yProc();
    if (index == 1) {
        if (which > 0) {
            --which;
            list.ListIndex = procs[which].ListIndex;
            showFrom(procs[which].FirstRecord);
        }
        if (list.ListIndex == 0) mainWindow().command(kMnuViewProc1).enabled = false;
    } else {
        int upper = list.ListCount() - 1;
        if (upper >= 0 && list.List(upper) == kMoreProcedures) --upper;
        if (which < upper && which + 1 < static_cast<int>(procs.size())) {
            ++which;
            list.ListIndex = procs[which].ListIndex;
            showFrom(procs[which].FirstRecord);
            mainWindow().lblRecord = "Line:" + std::to_string(procs[which].FirstRecord);
        }
    }
    sbProcButtonsSet();
}

void mnuViewFile_Click(int index) {
    int position = fileTable().wCurrentFile + 1 - 2 * index;
    if (position < 1 || position > oFile().Count()) return;
    HlydFLProcessSelectedFile(static_cast<std::int16_t>(position));
    sbFileButtonSet();
}

void mnuViewFileList_Click(int index) {
    if (index < 1 || index > oFile().Count()) return;
    HlydFLProcessSelectedFile(static_cast<std::int16_t>(index));
    sbFileButtonSet();
}

void DisplayFile() {
    std::int32_t first = emitterState().FirstRecord;
    if (first < 1) first = 1;
    showFrom(first);
}

void viewResized(int viewHeightTwips) {
    emitterState().ViewHeight = viewHeightTwips;
    if (fileTable().wCurrentFile >= 1) DisplayFile();
}

}  // namespace hlyd
