#pragma once
// The view of the current file in the main window: records drawn from a requested one until the
// hidden picture is full, which then becomes the visible picture in one step.
#include <cstdint>

namespace hlyd {

struct EmitterState {
    std::int32_t FirstRecord = -1;
    std::int32_t LastRecord = -1;
    std::int32_t ViewHeight = 0;  // twips; set from the scroll bar's height at each resize
    bool ProcListSync = true;
    // The view record.
    bool LinesKnown = false;
    bool Active = false;
    std::int32_t FirstShown = 0;
    std::int32_t LinesPerView = 0;
    float Width = 0;
    float Height = 0;
};

EmitterState& emitterState();
void resetEmitterState();

// Positive: show from this record; -1: show the end of the file. Returns in `record` the first
// record shown.
void HlydDSEmitRequestedData(std::int32_t& record);

// Whether the view draws the record at all (form definitions and attribute lines may be hidden):
// a search and a copy pass over those it does not.
bool recordOnScreen(std::int32_t record);

}  // namespace hlyd
