#pragma once
// Connector lines: a stub at each block opener and closer and a vertical between them, kept per
// indent level so that blocks crossing the top or bottom of a view, page or column still join.
#include <cstdint>
#include <vector>

#include "display/token_layout.h"
#include "settings/attributes.h"

namespace hlyd {

struct ConnectorEntry {
    bool Open = false;
    std::int32_t X = 0;  // negative: no horizontal stub is drawn
    std::int32_t Y = 0;
};

// Indexed by indent level, from 0; made with the bounds 0 to 10, it grows and never shrinks.
std::vector<ConnectorEntry>& connectorStack();
void resetConnectorStack();

void HlydCLBeginOrEnd(Destination destination, const AreaRecord& pos, std::int32_t indent, const AreaRecord& posNext,
                      std::int32_t wraps, std::int32_t record, float xToken, const FormatRecord& format,
                      float& xOffset);
void HlydCLContinueBeforeTop(Destination destination, const AreaRecord& pos, std::int32_t indent, float xOffset);
// Draws the verticals of the levels below `indent` down to the bottom. Levels whose column is the
// same (all those past the deepest column of a narrow output) are drawn as one line: a file nested
// thousands deep costs a page a few lines, not one per level.
void HlydCLContinueAfterBottom(Destination destination, float bottom, std::int32_t indent);

}  // namespace hlyd
