#pragma once

#include <cstdint>

// The system's local time, by the C run-time's 64-bit functions. Nothing else in the program calls these.

// A broken-down local time. A conversion that fails or is outside the years 1 to 9999 gives these defaults:
// -1 for hour, minute and second, 0 for everything else.
struct LocalTime {
    int year = 0;
    int month = 0;    // 1 to 12
    int day = 0;      // 1 to 31
    int weekday = 0;  // 0 is Sunday
    int hour = -1;
    int minute = -1;
    int second = -1;
};

// Never throws; see LocalTime for an instant that has no local time.
[[nodiscard]] LocalTime ToLocalTime(std::int64_t instant) noexcept;

// A day without a clock change, in seconds.
inline constexpr std::int64_t kSecondsPerDay = 86400;

// The instant of a local date and time; the system decides whether daylight saving applies. For a local time
// that a clock change skips, the Windows run-time returns an instant one hour early, glibc one hour late. For
// a repeated one Windows returns the second instant, glibc either. Throws std::invalid_argument unless year
// >= 1900, month 1 to 12, day 1 to 31, hour 0 to 23, minute and second 0 to 59, and when the system cannot
// convert the date.
[[nodiscard]] std::int64_t FromLocalTime(int year, int month, int day, int hour, int minute, int second);

// Reads the system's present time zone and daylight saving rules. Call it before the first conversion and
// whenever the system reports a change of zone or time. On Windows it removes TZ from the C run-time's
// environment, because the run-time interprets that variable wrongly.
void RefreshTimeZone();
