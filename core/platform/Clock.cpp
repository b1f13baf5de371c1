#include "core/platform/Clock.h"

#include <chrono>

std::int64_t CSystemClock::Now() const {
    using namespace std::chrono;
    return floor<seconds>(system_clock::now()).time_since_epoch().count();
}
