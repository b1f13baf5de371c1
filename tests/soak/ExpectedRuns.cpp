#include "tests/soak/ExpectedRuns.h"

#include <algorithm>
#include <chrono>

namespace {

// The instant of that many seconds into the day. A time that is skipped comes out as the run-time has it, a
// time that is repeated as the second.
std::int64_t InstantOf(std::int64_t day, std::int64_t seconds) {
    const std::int64_t wall = day * kDay + seconds;
    const std::int64_t winter = wall - kHour;
    const std::int64_t summer = winter - kHour;
#ifdef _WIN32
    return WallOf(winter) == wall ? winter : summer;
#else
    return WallOf(winter) == wall || WallOf(summer) != wall ? winter : summer;
#endif
}

// The same time of day so many days of 24 hours later, except where that would be on another date.
std::int64_t DaysLater(std::int64_t day, int days, std::int64_t seconds) {
    const std::int64_t later = InstantOf(day, seconds) + days * kDay;
    return DayOf(later) == day + days ? later : InstantOf(day + days, seconds);
}

bool IsFlagged(unsigned days, std::int64_t day) {
    return (days >> (day + 4) % 7 & 1) != 0;  // day 0 was a Thursday
}

std::int64_t MinuteOfDay(std::int64_t instant) {
    return WallOf(instant) % kDay / kMinute;
}

}  // namespace

std::optional<std::int64_t> ExpectedRun(const Rules& rules, std::int64_t last, std::int64_t now) {
    if (now < rules.start || last == 0) {
        return rules.start;
    }
    if (rules.isEvery && (rules.days == 0 || IsFlagged(rules.days, DayOf(now)))) {
        const std::int64_t run = last + rules.every * (rules.unit == 1 ? kHour : kMinute);
        if (MinuteOfDay(run) <= MinuteOfDay(rules.until)) {
            return run - run % kMinute;
        }
    }
    const std::int64_t day = DayOf(last);
    const std::int64_t start = MinuteOfDay(rules.start) * kMinute;
    std::optional<std::int64_t> next;
    for (int days = 1; days <= 7 && !next; ++days) {
        if (IsFlagged(rules.days, day + days)) {
            next = DaysLater(day, days, rules.isEvery ? 0 : start);
        }
    }
    if (rules.monthly) {
        using namespace std::chrono;
        const year_month_day date{sys_days{days{day}}};
        const sys_days first{date.year() / date.month() / 1};
        const sys_days following{(date.year() / date.month() + months{1}) / 1};
        const std::int64_t run =
            DaysLater(first.time_since_epoch().count(), static_cast<int>((following - first).count()), start);
        next = std::min(next.value_or(run), run);
    }
    return next;
}
