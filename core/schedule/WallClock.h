#pragma once

#include <chrono>
#include <cstdint>

#include "core/platform/LocalTime.h"

// Local dates and times as plain numbers, without a time zone.

// The date of a local time whose conversion did not fail (see LocalTime).
[[nodiscard]] inline std::chrono::year_month_day DateOf(const LocalTime& local) {
    using namespace std::chrono;
    return year{local.year} / month{static_cast<unsigned>(local.month)} /
           day{static_cast<unsigned>(local.day)};
}

[[nodiscard]] inline int MinuteOfDay(const LocalTime& local) {
    return local.hour * 60 + local.minute;
}

// Local date and time as seconds since 1970, ignoring the zone: subtract two to get the clock shift.
[[nodiscard]] inline std::int64_t WallSeconds(const std::chrono::year_month_day& date, int minuteOfDay,
                                              int second = 0) {
    return std::chrono::sys_days{date}.time_since_epoch().count() * kSecondsPerDay +
           std::int64_t{minuteOfDay} * 60 + second;
}
