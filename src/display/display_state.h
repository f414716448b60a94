#pragma once
// The display's part of the Session: the emitter's place in the file, the connector lines being
// drawn, the layout metrics, viewing, the view's map, selection and find.
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "display/view_find.h"
#include "display/view_map.h"
#include "display/view_selection.h"
#include "display/viewing.h"
#include "platform/private_part.h"
#include "platform/session.h"

namespace hlyd {

struct ConnectorState;

struct DisplayState {
    EmitterState emitter;
    PrivatePart<ConnectorState> connectors;
    LayoutMetrics metrics;
    ViewingState viewing;
    ViewMap viewMap;
    ViewSelection selection;
    FindState find;
};

inline DisplayState& displayState() { return *detail::current.display; }

}  // namespace hlyd
