#pragma once
// Cutting one source line into raw tokens, and classifying them.
#include <cstdint>
#include <string_view>

#include "analysis/basiclan_state.h"

namespace hlyd {

// Cuts the line into WorkTokens(1..count). Leaves status 4 when the line has too many tokens.
void ExtractTokens(std::string_view sourceRec, WorkTokenArray& workTokens, std::int32_t& workTokenCount);

// Gives each token its class and keyword; drops empty tokens but the first. The count may go down.
void AnalyzeTokens(WorkTokenArray& workTokens, std::int32_t& workTokenCount);

}  // namespace hlyd
