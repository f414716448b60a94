#include <chrono>

#include "platform/clock.h"

namespace hlyd {

namespace {
class SystemClock : public Clock {
public:
    std::time_t now() const override { return std::time(nullptr); }
    std::int64_t ticksMs() const override {
        using namespace std::chrono;
        return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    }
};
}  // namespace

Clock& systemClock() {
    static SystemClock system;
    return system;
}

void setClock(Clock* clock) { currentSession().ports.clock = clock ? clock : &systemClock(); }

std::tm localTime(std::time_t t) {
    std::tm result{};
#ifdef _WIN32
    localtime_s(&result, &t);
#else
    localtime_r(&t, &result);
#endif
    return result;
}

}  // namespace hlyd
