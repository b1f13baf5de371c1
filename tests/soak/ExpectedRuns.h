#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

#include "tests/support/TaskRules.h"

// When tasks have to run, computed a second time: with a calendar of Europe/Berlin in 2026 written by hand,
// so that nothing comes from the code under test or from the system.

inline constexpr std::int64_t kHour = 3600, kDay = 86400;
inline constexpr std::int64_t kSpring = 1774746000;  // 2026-03-29 01:00 UTC: 02:00 becomes 03:00
inline constexpr std::int64_t kAutumn = 1792890000;  // 2026-10-25 01:00 UTC: 03:00 becomes 02:00

// Local time as seconds of a clock that never changes; its days since 1970; its time of day in minutes.
inline std::int64_t WallOf(std::int64_t instant) {
    return instant + (instant >= kSpring && instant < kAutumn ? 2 : 1) * kHour;
}
inline std::int64_t DayOf(std::int64_t instant) {
    return WallOf(instant) / kDay;
}
inline std::int64_t TimeOf(std::int64_t instant) {
    return WallOf(instant) % kDay / 60 * 60;
}

// The instant of that time of day. A skipped time gives what the C run-time gives, a repeated time the second
// instant.
inline std::int64_t InstantOf(std::int64_t day, std::int64_t time) {
    const std::int64_t winter = day * kDay + time - kHour;
    const std::int64_t summer = winter - kHour;
#ifdef _WIN32
    return WallOf(winter) == winter + kHour ? winter : summer;
#else
    return WallOf(winter) == winter + kHour || WallOf(summer) != winter + kHour ? winter : summer;
#endif
}

// So many days of 24 hours later, unless that falls on another date: then at the same time of day.
inline std::int64_t DaysLater(std::int64_t day, std::int64_t days, std::int64_t time) {
    const std::int64_t later = InstantOf(day, time) + days * kDay;
    return DayOf(later) == day + days ? later : InstantOf(day + days, time);
}

// The task's next run seen from `now`; nullopt when there is none. For a local time that a clock change
// repeats it returns the second instant; the system may return the first.
inline std::optional<std::int64_t> ExpectedRun(const Rules& rules, std::int64_t now) {
    const auto isFlagged = [&](std::int64_t day) { return (rules.days >> (day + 4) % 7 & 1) != 0; };
    if (now < rules.start || rules.last == 0) {
        return rules.start;
    }
    const std::int64_t run = rules.last + rules.every * (rules.unit == 1 ? kHour : 60);
    if (rules.isEvery && (rules.days == 0 || isFlagged(DayOf(now))) && TimeOf(run) <= TimeOf(rules.until)) {
        return run - run % 60;
    }
    const std::int64_t day = DayOf(rules.last);  // day 0 was a Thursday
    std::optional<std::int64_t> next;
    for (int days = 1; days <= 7 && !next; ++days) {
        if (isFlagged(day + days)) {
            next = DaysLater(day, days, rules.isEvery ? 0 : TimeOf(rules.start));
        }
    }
    if (rules.monthly) {
        using namespace std::chrono;
        const year_month_day date{sys_days{days{day}}};
        const sys_days first{date.year() / date.month() / 1};
        const sys_days following{(date.year() / date.month() + months{1}) / 1};
        const std::int64_t monthly =
            DaysLater(first.time_since_epoch().count(), (following - first).count(), TimeOf(rules.start));
        next = std::min(next.value_or(monthly), monthly);
    }
    return next;
}
