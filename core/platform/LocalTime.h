#pragma once

#include <cstdint>

// The system's local time, by the C run-time's 64-bit functions. Nothing else of the program calls those.

// A broken-down local time. A conversion that fails, or leaves the years 1 to 9999, gives the values of this
// default: -1 for hour, minute and second, 0 for everything else.
struct LocalTime {
    int year = 0;
    int month = 0;    // 1 to 12
    int day = 0;      // 1 to 31
    int weekday = 0;  // 0 is Sunday
    int hour = -1;
    int minute = -1;
    int second = -1;
};

// Never raises; see LocalTime for an instant that has no local time.
[[nodiscard]] LocalTime ToLocalTime(std::int64_t instant) noexcept;

// A day without a clock change, in seconds.
inline constexpr std::int64_t kSecondsPerDay = 86400;

// The instant of a local date and time, daylight saving left to the system. A local time that a clock change
// skips or repeats comes out as the system decides: the Windows run-time answers one hour early for a skipped
// time and the second of two, glibc one hour late and either of two.
// Raises std::invalid_argument unless year >= 1900, month 1 to 12, day 1 to 31, hour 0 to 23, minute and
// second 0 to 59, and when the system cannot convert the date.
[[nodiscard]] std::int64_t FromLocalTime(int year, int month, int day, int hour, int minute, int second);

// Takes up the system's present time zone and clock rules. To be called before the first conversion (it
// removes TZ from the C run-time's environment, whose readings of that variable are wrong on Windows) and
// whenever the system reports a change of zone or time.
void RefreshTimeZone();
