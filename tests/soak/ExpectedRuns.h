#pragma once

#include <cstdint>
#include <optional>

#include "tests/support/TaskRules.h"

// When tasks are to run, worked out a second time: with a calendar of Europe/Berlin in 2026 written by hand,
// so that nothing is asked of the code or of the system that are being tested.

inline constexpr std::int64_t kMinute = 60, kHour = 3600, kDay = 86400;
inline constexpr std::int64_t kSpring = 1774746000;  // 2026-03-29 01:00 UTC: 02:00 becomes 03:00
inline constexpr std::int64_t kAutumn = 1792890000;  // 2026-10-25 01:00 UTC: 03:00 becomes 02:00

// What the clock on the wall shows, as seconds of an unchanging clock.
[[nodiscard]] constexpr std::int64_t WallOf(std::int64_t instant) {
    return instant + (instant >= kSpring && instant < kAutumn ? 2 : 1) * kHour;
}
// Days since 1970 on the wall.
[[nodiscard]] constexpr std::int64_t DayOf(std::int64_t instant) {
    return WallOf(instant) / kDay;
}

// The task's next run seen from `now`, given that it last ran at `last` (0 is never); nothing when there is
// none. Holds until the task runs, its start comes or the day ends. Of a wall time that a clock change
// repeats it means the second, which the system may not.
[[nodiscard]] std::optional<std::int64_t> ExpectedRun(const Rules& rules, std::int64_t last,
                                                      std::int64_t now);
