#pragma once
// What a failure while writing to the printer does to a print run: the page change and the
// emitters share one reaction, so that the user is asked the same question wherever it happens.
#include <functional>

namespace hlyd {

// Runs `step`. A missing heading section (error 9) is passed over; a printer error (482) stops
// the run; anything else asks "Abort, Retry, Ignore": Retry runs the step again, Ignore goes on,
// Abort stops the run and lets the error go on to the caller's report.
void printerStep(const std::function<void()>& step);

}  // namespace hlyd
