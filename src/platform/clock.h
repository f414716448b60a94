#pragma once
// The clock port: the present moment and a millisecond tick. Tests fix both.
#include <cstdint>
#include <ctime>

#include "platform/session.h"

namespace hlyd {

class Clock {
public:
    virtual ~Clock() = default;
    virtual std::time_t now() const = 0;       // seconds since the epoch
    virtual std::int64_t ticksMs() const = 0;  // a monotonic millisecond counter
};

// The clock of the Session in force.
inline Clock& theClock() { return *currentSession().ports.clock; }
void setClock(Clock* clock);  // nullptr restores the system clock
// The clock of every Session that was given none.
Clock& systemClock();

// Broken-down local time of a moment, safe for one thread.
std::tm localTime(std::time_t t);

}  // namespace hlyd
