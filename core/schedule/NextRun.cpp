#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <stdexcept>

#include "core/platform/LocalTime.h"
#include "core/schedule/WallClock.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"

// The rules are described in SCVShchedulerTask.h. They run for every task on every tick, and a local-time
// conversion costs far more than everything else. So each path makes only the conversions that it needs, and
// each of them once.

namespace {

using std::chrono::year_month_day;

struct TimeOfDay {
    int hour = 0;
    int minute = 0;
};

std::int64_t Add(std::int64_t instant, std::int64_t seconds) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (seconds > 0 ? instant > Limits::max() - seconds : instant < Limits::min() - seconds) {
        throw std::invalid_argument("an instant beyond all calendars");
    }
    return instant + seconds;
}

std::int64_t FromLocalDate(const year_month_day& date, const TimeOfDay& time) {
    return FromLocalTime(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day())), time.hour, time.minute, 0);
}

// The instant of this time of day, which is always on this date. When a clock change skips the time, the C
// run-time returns an instant before or after the gap, and for a gap at midnight that can be on the wrong
// date. Example: in Havana 8 March 2026, 00:00 does not exist, and Windows returns 7 March 23:00. The result
// is then the instant equally far on the other side: 8 March 01:00.
std::int64_t InstantOn(const year_month_day& date, const TimeOfDay& time) {
    const std::int64_t instant = FromLocalDate(date, time);
    const LocalTime local = ToLocalTime(instant);
    if (DateOf(local) == date) {
        return instant;
    }
    const std::int64_t skipped =
        WallSeconds(date, time.hour * 60 + time.minute) - WallSeconds(DateOf(local), MinuteOfDay(local));
    const std::int64_t other = Add(instant, skipped);
    // A zone that crosses the date line can skip a whole date. Then take the later instant, or the task would
    // stay due.
    return DateOf(ToLocalTime(other)) == date ? other : std::max(instant, other);
}

// This time of day `days` days after the last run's date, counted in days of 86,400 seconds: a clock change
// in between shifts the run by an hour, but never to another date. Examples for Berlin, where 25 October 2026
// has 25 hours, and 1 day: a last run on 24 October at 10:00 gives 25 October 09:00. A last run on 25 October
// at 00:30 would give 23:30 of the same date, and the task would be due on every tick from then to midnight;
// the result is 26 October 00:30.
std::int64_t DaysAfter(const LocalTime& last, int days, const TimeOfDay& time) {
    const std::int64_t instant = FromLocalDate(DateOf(last), time) + days * kSecondsPerDay;
    const year_month_day date = std::chrono::sys_days{DateOf(last)} + std::chrono::days{days};
    return DateOf(ToLocalTime(instant)) == date ? instant : InstantOn(date, time);
}

// This time of day on day 1 of the month after the last run's, also counted in days of 86,400 seconds: 32
// days on from day 1 of the last run's month, then back to day 1. A shift by a clock change stays unless it
// leads to another date. Examples: in Berlin, 00:30 in October 2026 gives 1 November 23:30; in Sydney, 23:30
// in September 2022 would give 30 September, so the result is 1 October 23:30.
std::int64_t FirstOfNextMonth(const LocalTime& last, const TimeOfDay& time) {
    using namespace std::chrono;
    const year_month month{year{last.year}, std::chrono::month{static_cast<unsigned>(last.month)}};
    const std::int64_t beyond = FromLocalDate(month / 1, time) + 32 * kSecondsPerDay;
    LocalTime local = ToLocalTime(beyond);
    const std::int64_t instant = beyond - (local.day - 1) * kSecondsPerDay;
    if (instant != beyond) {
        local = ToLocalTime(instant);
    }
    const year_month_day date = (month + months{1}) / 1;
    return DateOf(local) == date ? instant : InstantOn(date, time);
}

// True when at least one date lies between the date `days` after the last run's and the next month. A clock
// change cannot reorder a weekday run and a monthly run then, so the monthly one need not be computed.
bool IsWellBeforeNextMonth(const LocalTime& last, int days) {
    const year_month_day date = DateOf(last);
    const std::chrono::day end = (date.year() / date.month() / std::chrono::last).day();
    return date.day() + std::chrono::days{days} < end;
}

int CountFlaggedDays(const CSCVShchedulerTask& task) {
    int count = 0;
    for (int dayNumber = 1; dayNumber <= 7; ++dayNumber) {
        count += task.RepeatsOnWeekday(dayNumber);
    }
    return count;
}

// Days from a weekday (0 is Sunday) to the next flagged one: 1 to 7. At least one must be flagged. Example:
// with Monday and Thursday flagged 3 from Monday and 4 from Thursday; with Monday alone 7 from Monday.
int DaysToNextFlagged(const CSCVShchedulerTask& task, int weekday) {
    int days = 1;
    while (days < 7 && task.RepeatsOnWeekday((weekday + days) % 7 + 1) == 0) {
        ++days;
    }
    return days;
}

// The run by the Every rule. Nothing when the rule is inactive, when today is not flagged, or when the run
// would be later in the day than the until time. Examples for every 2 hours until 18:00 without flagged days:
// last run 16:00 gives 18:00, 17:00 gives nothing, and 23:00 gives 01:00 of the next date.
std::optional<std::int64_t> NextEveryRun(const CSCVShchedulerTask& task, std::int64_t now,
                                         std::int64_t lastRun) {
    if (!task.IsEveryActive()) {
        return std::nullopt;
    }
    const int flaggedDays = CountFlaggedDays(task);
    const bool isRestricted = flaggedDays != 0 && flaggedDays != 7;
    if (isRestricted && task.RepeatsOnWeekday(ToLocalTime(now).weekday + 1) == 0) {
        return std::nullopt;
    }
    const std::int64_t candidate = Add(lastRun, task.EveryMinutes() * 60);
    const LocalTime local = ToLocalTime(candidate);
    // Only times of day are compared. A candidate in the past counts too, and one that crossed midnight.
    if (MinuteOfDay(local) > MinuteOfDay(ToLocalTime(task.m_tUntilTime))) {
        return std::nullopt;
    }
    return Add(candidate, -local.second);
}

// The run by weekdays or months, whichever is earlier, the monthly one when both are equal; 0 without either.
std::int64_t NextCalendarRun(const CSCVShchedulerTask& task, std::int64_t lastRun) {
    const bool isMonthly = task.m_bRepeatOnMonthly != 0;
    const bool isWeekly = task.HasWeekdayRepeat() != 0;
    if (!isWeekly && !isMonthly) {
        return 0;
    }
    const LocalTime last = ToLocalTime(lastRun);
    // An Every task begins its flagged day at midnight, not at the start time.
    const bool beginsAtMidnight = isWeekly && task.IsEveryActive();
    TimeOfDay time;
    if (isMonthly || !beginsAtMidnight) {
        const LocalTime start = ToLocalTime(task.m_tStartTime);
        time = {start.hour, start.minute};
    }
    std::int64_t weekly = 0;
    if (isWeekly) {
        const int days = DaysToNextFlagged(task, last.weekday);
        weekly = DaysAfter(last, days, beginsAtMidnight ? TimeOfDay{} : time);
        if (weekly > 0 && (!isMonthly || IsWellBeforeNextMonth(last, days))) {
            return weekly;
        }
    }
    const std::int64_t monthly = isMonthly ? FirstOfNextMonth(last, time) : 0;
    if (weekly > 0 && (monthly == 0 || weekly < monthly)) {
        return weekly;
    }
    return std::max<std::int64_t>(monthly, 0);
}

}  // namespace

int CSCVShchedulerTask::RepeatsOnWeekday(int dayNumber) const noexcept {
    return dayNumber >= 1 && dayNumber <= 7 && this->*TaskDayOf(dayNumber - 1).flag != 0 ? 1 : 0;
}

int CSCVShchedulerTask::HasWeekdayRepeat() const noexcept {
    return CountFlaggedDays(*this) != 0 ? 1 : 0;
}

std::int64_t CSCVShchedulerTask::EveryMinutes() const noexcept {
    return m_nEveryUnit == 1 ? std::int64_t{m_nEveryValue} * 60 : m_nEveryValue;
}

bool CSCVShchedulerTask::IsEveryActive() const noexcept {
    return m_bEnableEvery != 0 && m_nEveryValue >= 1;
}

std::int64_t CSCVShchedulerTask::GetNextRunTime(std::int64_t now) const {
    return GetNextRunTime(now, m_tLastRunTime);
}

std::int64_t CSCVShchedulerTask::GetNextRunTime(std::int64_t now, std::int64_t lastRun) const {
    if (m_tStartTime > now) {
        return m_tStartTime;
    }
    if (lastRun == 0) {
        return Add(now, -ToLocalTime(now).second);
    }
    const std::optional<std::int64_t> every = NextEveryRun(*this, now, lastRun);
    return every ? *every : NextCalendarRun(*this, lastRun);
}
