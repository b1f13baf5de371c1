#include "core/platform/Clock.h"

#include <chrono>

// GCOVR_EXCL_START: tests pass a clock of their own
std::int64_t CSystemClock::Now() const {
    using namespace std::chrono;
    return floor<seconds>(system_clock::now()).time_since_epoch().count();
}
// GCOVR_EXCL_STOP
