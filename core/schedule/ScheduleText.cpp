#include "core/schedule/ScheduleText.h"

#include <algorithm>
#include <array>

#include "core/platform/LocalTime.h"
#include "core/schedule/TimeText.h"
#include "core/schedule/WallClock.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"

namespace {

constexpr int kMinutesPerDay = 24 * 60;

// The number of runs that follow a run at this minute of the day until the Every rule ends, without clock
// changes; nothing when it never ends. Example: 08:00, every 60 minutes until 18:00 gives 10, because 19:00
// is too late.
std::optional<std::int64_t> RunsUntilEnd(int minuteOfDay, std::int64_t everyMinutes, int until) {
    const int step = static_cast<int>(everyMinutes % kMinutesPerDay);
    for (std::int64_t runs = 0; runs < kMinutesPerDay; ++runs) {
        minuteOfDay = (minuteOfDay + step) % kMinutesPerDay;
        if (minuteOfDay > until) {
            return runs;
        }
    }
    return std::nullopt;
}

// Whether the Every rule is active without weekdays and months, which would start it again.
bool EndsForGood(const CSCVShchedulerTask& task) {
    return task.IsEveryActive() && task.HasWeekdayRepeat() == 0 && task.m_bRepeatOnMonthly == 0;
}

// The last of the runs from `run` on, `everyMinutes` apart, before one would be later in the day than
// `until`; nothing when they never end. Between two clock changes RunsUntilEnd counts the runs.
std::optional<std::int64_t> LastOfSeries(std::int64_t run, std::int64_t everyMinutes, int until,
                                         const std::vector<ClockChange>& changes) {
    const std::int64_t step = everyMinutes * 60;
    for (const ClockChange& change : changes) {
        if (change.at <= run) {
            continue;
        }
        const auto more = RunsUntilEnd(MinuteOfDay(ToLocalTime(run)), everyMinutes, until);
        if (more && run + (*more + 1) * step < change.at) {
            return run + *more * step;
        }
        const std::int64_t before = run + (change.at - 1 - run) / step * step;
        if (MinuteOfDay(ToLocalTime(before + step)) > until) {
            return before;
        }
        run = before + step;
    }
    const auto more = RunsUntilEnd(MinuteOfDay(ToLocalTime(run)), everyMinutes, until);
    return more ? std::optional(run + *more * step) : std::nullopt;
}

bool IsSameDate(const LocalTime& left, const LocalTime& right) {
    return left.year == right.year && left.month == right.month && left.day == right.day;
}

// "23 Nov 2026"
std::wstring DateInWords(const LocalTime& local) {
    constexpr std::array kMonths = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                    L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
    return local.hour < 0
               ? L"an impossible date"
               : std::to_wstring(local.day) + L' ' + kMonths.at(static_cast<std::size_t>(local.month) - 1) +
                     L' ' + std::to_wstring(local.year);
}

// "08:00"
std::wstring TimeInWords(const LocalTime& local) {
    return local.hour < 0 ? L"an impossible time" : FormatTimeOfDay(MinuteOfDay(local));
}

std::wstring At(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return DateInWords(local) + L" at " + TimeInWords(local);
}

std::wstring EveryInWords(const CSCVShchedulerTask& task) {
    const std::int64_t minutes = task.EveryMinutes();
    if (task.m_nEveryUnit == 1 && task.m_nEveryValue > 1) {
        return L"every " + std::to_wstring(task.m_nEveryValue) + L" hours";
    }
    return minutes == 1 ? L"every minute" : L"every " + std::to_wstring(minutes) + L" minutes";
}

std::wstring UntilInWords(const CSCVShchedulerTask& task) {
    return L"until " + TimeInWords(ToLocalTime(task.m_tUntilTime));
}

// "on Mon, Wen and Thu", "every day"
std::wstring DaysInWords(const CSCVShchedulerTask& task) {
    std::vector<std::wstring> names;
    for (const TaskDay& day : kTaskDays) {
        if (task.*day.flag != 0) {
            names.emplace_back(day.name);
        }
    }
    if (names.size() == std::size(kTaskDays)) {
        return L"every day";
    }
    std::wstring text = L"on ";
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? L"" : i + 1 == names.size() ? L" and " : L", ";
        text += names[i];
    }
    return text;
}

std::vector<ClockChange> ChangesThatMatter(const CSCVShchedulerTask& task, std::int64_t now) {
    return EndsForGood(task) ? ClockChangesOfYear(now) : std::vector<ClockChange>();
}

// ", only on 23 Nov 2026; ends for good", "; ends for good on ..." or nothing.
std::wstring EndInWords(const CSCVShchedulerTask& task, std::int64_t now,
                        const std::vector<ClockChange>& changes) {
    const std::optional<std::int64_t> last = LastRunForGood(task, now, changes);
    if (!last) {
        return {};
    }
    if (*last == 0) {
        return L"; has ended for good";
    }
    const LocalTime end = ToLocalTime(*last);
    const LocalTime next = ToLocalTime(task.GetNextRunTime(now));
    return IsSameDate(next, end) ? L", only on " + DateInWords(end) + L"; ends for good"
                                 : L"; ends for good on " + DateInWords(end);
}

// The weekday and Every rules together, without what months add.
std::wstring RepeatsInWords(const CSCVShchedulerTask& task, const std::wstring& time) {
    const bool isWeekly = task.HasWeekdayRepeat() != 0;
    if (task.IsEveryActive()) {
        const std::wstring window = isWeekly ? DaysInWords(task) + L" from 00:00 " : L"";
        return window + (isWeekly ? UntilInWords(task) + L", " + EveryInWords(task)
                                  : EveryInWords(task) + L' ' + UntilInWords(task));
    }
    return isWeekly ? DaysInWords(task) + L" at " + time : std::wstring();
}

}  // namespace

std::optional<std::int64_t> LastRunForGood(const CSCVShchedulerTask& task, std::int64_t now,
                                           const std::vector<ClockChange>& changes) {
    if (!EndsForGood(task)) {
        return std::nullopt;
    }
    const std::int64_t next = task.GetNextRunTime(now);
    if (next <= 0) {
        return 0;
    }
    const std::int64_t first = std::max(next, now);
    const std::int64_t start = first - ToLocalTime(first).second;  // later runs are at full minutes
    const std::optional<std::int64_t> last =
        LastOfSeries(start, task.EveryMinutes(), MinuteOfDay(ToLocalTime(task.m_tUntilTime)), changes);
    return last == start ? first : last;
}

std::wstring EndForGoodText(const CSCVShchedulerTask& task, std::int64_t now,
                            const std::vector<ClockChange>& changes) {
    const std::optional<std::int64_t> last = LastRunForGood(task, now, changes);
    if (!last) {
        return {};
    }
    if (*last == 0) {
        return L"has ended for good, as the next run would be later than the until time";
    }
    const std::wstring when = FormatMinute(*last);
    constexpr std::size_t kDate = 10;
    return L"ends for good on " + when.substr(0, kDate) + L" with the run of " +
           when.substr(std::min(kDate + 1, when.size()));
}

std::vector<std::wstring> ScheduleWarnings(const CSCVShchedulerTask& task, std::int64_t now) {
    std::vector<std::wstring> warnings;
    if (std::wstring end = EndForGoodText(task, now, ChangesThatMatter(task, now)); !end.empty()) {
        warnings.push_back(std::move(end));
    }
    if (task.IsEveryActive() && task.HasWeekdayRepeat() != 0) {
        warnings.emplace_back(L"with days ticked, Every begins at 00:00");
    }
    return warnings;
}

std::wstring ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now) {
    return ScheduleInWords(task, now, ChangesThatMatter(task, now));
}

std::wstring ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now,
                             const std::vector<ClockChange>& changes) {
    const bool isMonthly = task.m_bRepeatOnMonthly != 0;
    const std::wstring time = TimeInWords(ToLocalTime(task.m_tStartTime));
    std::wstring repeats = RepeatsInWords(task, time);
    if (repeats.empty() && !isMonthly) {
        const bool hasRun = task.m_tStartTime <= now && task.m_tLastRunTime != 0;
        return hasRun ? L"once; has run" : L"once, on " + At(task.m_tStartTime);
    }
    if (isMonthly) {
        repeats +=
            (repeats.empty() ? L"on day 1 of each month at " : L" and on day 1 of each month at ") + time;
    }
    const std::wstring end = EndInWords(task, now, changes);
    const bool isFirstAhead = task.m_tStartTime > now && !end.starts_with(L',');
    return (isFirstAhead ? L"first on " + At(task.m_tStartTime) + L", then " : L"") + repeats + end;
}

std::wstring FormatWithWeekday(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return instant == 0 || local.hour < 0
               ? FormatMinute(instant)
               : std::wstring(TaskDayOf(local.weekday).name) + L' ' + FormatMinute(instant);
}
