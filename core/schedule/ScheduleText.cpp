#include "core/schedule/ScheduleText.h"

#include <algorithm>
#include <array>
#include <cstdio>

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
std::string DateInWords(const LocalTime& local) {
    constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return local.hour < 0
               ? "an impossible date"
               : std::to_string(local.day) + ' ' + kMonths.at(static_cast<std::size_t>(local.month) - 1) +
                     ' ' + std::to_string(local.year);
}

// "08:00"
std::string TimeInWords(const LocalTime& local) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", local.hour, local.minute);
    return local.hour < 0 ? "an impossible time" : text.data();
}

std::string At(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return DateInWords(local) + " at " + TimeInWords(local);
}

std::string EveryInWords(const CSCVShchedulerTask& task) {
    const std::int64_t minutes = task.EveryMinutes();
    if (task.m_nEveryUnit == 1 && task.m_nEveryValue > 1) {
        return "every " + std::to_string(task.m_nEveryValue) + " hours";
    }
    return minutes == 1 ? "every minute" : "every " + std::to_string(minutes) + " minutes";
}

std::string UntilInWords(const CSCVShchedulerTask& task) {
    return "until " + TimeInWords(ToLocalTime(task.m_tUntilTime));
}

// "on Mon, Wen and Thu", "every day"
std::string DaysInWords(const CSCVShchedulerTask& task) {
    std::vector<std::string> names;
    for (const TaskDay& day : kTaskDays) {
        if (task.*day.flag != 0) {
            names.emplace_back(day.name);
        }
    }
    if (names.size() == std::size(kTaskDays)) {
        return "every day";
    }
    std::string text = "on ";
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? "" : i + 1 == names.size() ? " and " : ", ";
        text += names[i];
    }
    return text;
}

std::vector<ClockChange> ChangesThatMatter(const CSCVShchedulerTask& task, std::int64_t now) {
    return EndsForGood(task) ? ClockChangesOfYear(now) : std::vector<ClockChange>();
}

// ", only on 23 Nov 2026; ends for good", "; ends for good on ..." or nothing.
std::string EndInWords(const CSCVShchedulerTask& task, std::int64_t now,
                       const std::vector<ClockChange>& changes) {
    const std::optional<std::int64_t> last = LastRunForGood(task, now, changes);
    if (!last) {
        return {};
    }
    if (*last == 0) {
        return "; has ended for good";
    }
    const LocalTime end = ToLocalTime(*last);
    const LocalTime next = ToLocalTime(task.GetNextRunTime(now));
    return IsSameDate(next, end) ? ", only on " + DateInWords(end) + "; ends for good"
                                 : "; ends for good on " + DateInWords(end);
}

// The weekday and Every rules together, without what months add.
std::string RepeatsInWords(const CSCVShchedulerTask& task, const std::string& time) {
    const bool isWeekly = task.HasWeekdayRepeat() != 0;
    if (task.IsEveryActive()) {
        const std::string window = isWeekly ? DaysInWords(task) + " from 00:00 " : "";
        return window + (isWeekly ? UntilInWords(task) + ", " + EveryInWords(task)
                                  : EveryInWords(task) + ' ' + UntilInWords(task));
    }
    return isWeekly ? DaysInWords(task) + " at " + time : std::string();
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

std::string EndForGoodText(const CSCVShchedulerTask& task, std::int64_t now,
                           const std::vector<ClockChange>& changes) {
    const std::optional<std::int64_t> last = LastRunForGood(task, now, changes);
    if (!last) {
        return {};
    }
    if (*last == 0) {
        return "has ended for good, as the next run would be later than the until time";
    }
    const std::string when = FormatMinute(*last);
    constexpr std::size_t kDate = 10;
    return "ends for good on " + when.substr(0, kDate) + " with the run of " +
           when.substr(std::min(kDate + 1, when.size()));
}

std::vector<std::string> ScheduleWarnings(const CSCVShchedulerTask& task, std::int64_t now) {
    std::vector<std::string> warnings;
    if (std::string end = EndForGoodText(task, now, ChangesThatMatter(task, now)); !end.empty()) {
        warnings.push_back(std::move(end));
    }
    if (task.IsEveryActive() && task.HasWeekdayRepeat() != 0) {
        warnings.emplace_back("with days ticked, Every begins at 00:00");
    }
    return warnings;
}

std::string ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now) {
    return ScheduleInWords(task, now, ChangesThatMatter(task, now));
}

std::string ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now,
                            const std::vector<ClockChange>& changes) {
    const bool isMonthly = task.m_bRepeatOnMonthly != 0;
    const std::string time = TimeInWords(ToLocalTime(task.m_tStartTime));
    std::string repeats = RepeatsInWords(task, time);
    if (repeats.empty() && !isMonthly) {
        const bool hasRun = task.m_tStartTime <= now && task.m_tLastRunTime != 0;
        return hasRun ? "once; has run" : "once, on " + At(task.m_tStartTime);
    }
    if (isMonthly) {
        repeats +=
            (repeats.empty() ? "on day 1 of each month at " : " and on day 1 of each month at ") + time;
    }
    const std::string end = EndInWords(task, now, changes);
    const bool isFirstAhead = task.m_tStartTime > now && !end.starts_with(',');
    return (isFirstAhead ? "first on " + At(task.m_tStartTime) + ", then " : "") + repeats + end;
}

std::string FormatWithWeekday(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return instant == 0 || local.hour < 0 ? FormatMinute(instant)
                                          : TaskDayOf(local.weekday).name + (' ' + FormatMinute(instant));
}
