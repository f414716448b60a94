#pragma once
// The diagnostics' part of the Session: the trace switches and status, the log, the error tail.
#include <memory>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/error_tail.h"
#include "platform/session.h"

namespace hlyd {

struct BaseState {
    cDebug debug;
    std::unique_ptr<cLog> log;  // made when first written: its first line reads the clock
    ErrorReporter errorTail;
};

inline BaseState& baseState() { return *detail::current.base; }

}  // namespace hlyd
