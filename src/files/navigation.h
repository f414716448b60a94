#pragma once
// Walking the records of the loaded file: a record number made sound, news on long jumps, a
// cancelled run noticed, and the map between records and the procedure list.
#include <cstdint>
#include <string>

namespace hlyd {

struct NavigationState {
    std::int16_t emitterPassFlag = 0;  // set back at record 1: a new pass of an emitter begins
    std::int32_t runState = 0;         // 14 when the user has cancelled a run
    bool stopRequested = false;        // the global stop flag
};

NavigationState& navigation();

constexpr std::int32_t kRunCancelled = 14;

// `control` is the caption that shows progress; the record buffer of the caller is not touched.
void HlydCFGetRecord(std::int32_t& record, std::string& control);

// Moves `record` on to the start of the next procedure, or to the end-of-file record.
void HlydPCGetNext(std::int32_t& record);

// The procedure list entry that the record belongs to.
void HlydPCGetAssociatedProc(std::int32_t record, std::int32_t& which);

}  // namespace hlyd
