#include "cli/report/RunPlan.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>
#include <tuple>

#include "cli/report/Csv.h"
#include "cli/report/Json.h"
#include "cli/report/Text.h"
#include "core/platform/LocalTime.h"
#include "core/schedule/NextRuns.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTask.h"

namespace {

constexpr int kDays = 7;
constexpr int kHours = 24;
constexpr int kMostRunsOfATask = 100'000;  // of one task

// The runs of one task up to `to`, or as many as give `count` runs that are not before `from`.
std::vector<std::int64_t> RunsUpTo(CSCVShchedulerTask& task, std::int64_t now, std::int64_t from,
                                   std::int64_t to, std::size_t count) {
    for (int tried = 16;; tried = std::min(8 * tried, kMostRunsOfATask)) {
        std::vector<std::int64_t> runs = NextRuns(task, now, tried);
        const auto first = std::lower_bound(runs.begin(), runs.end(), from);
        const bool isComplete = runs.size() < static_cast<std::size_t>(tried) || runs.back() > to ||
                                static_cast<std::size_t>(runs.end() - first) >= count;
        if (isComplete || tried == kMostRunsOfATask) {
            runs.erase(std::upper_bound(first, runs.end(), to), runs.end());
            runs.erase(runs.begin(), std::lower_bound(runs.begin(), runs.end(), from));
            return runs;
        }
    }
}

std::array<LocalTime, kDays> DaysOfWeek(std::int64_t now) {
    const LocalTime today = ToLocalTime(now);
    const std::int64_t noon = FromLocalTime(today.year, today.month, today.day, 12, 0, 0);
    std::array<LocalTime, kDays> days;
    for (int i = 0; i < kDays; ++i) {
        days[static_cast<std::size_t>(i)] = ToLocalTime(noon + i * kSecondsPerDay);
    }
    return days;
}

std::wstring TimeOf(const PlannedRun& run) {
    return FormatSecond(run.time);
}

}  // namespace

std::vector<PlannedRun> PlanRuns(const std::vector<CSCVShchedulerTask*>& tasks, std::int64_t now,
                                 std::int64_t from, std::int64_t to, std::size_t count,
                                 std::vector<const CSCVShchedulerTask*>& unplanned) {
    std::vector<PlannedRun> plan;
    for (CSCVShchedulerTask* task : tasks) {
        try {
            for (const std::int64_t run : RunsUpTo(*task, now, from, to, count)) {
                plan.push_back({run, task});
            }
        } catch (const std::exception&) {
            unplanned.push_back(task);
        }
    }
    // Runs at the same time stay in the order of the list, in which a pass launches them.
    std::stable_sort(plan.begin(), plan.end(),
                     [](const PlannedRun& left, const PlannedRun& right) { return left.time < right.time; });
    plan.resize(std::min(plan.size(), count));
    return plan;
}

std::string RunsAsText(const std::vector<PlannedRun>& runs) {
    std::string text;
    for (const PlannedRun& run : runs) {
        text += Join(TimeOf(run), "  ", run.task->m_strProjectPath, "\n");
    }
    return text;
}

std::string RunsAsCsv(const std::vector<PlannedRun>& runs) {
    std::string text(kCsvStart);
    AppendCsvRow(text, {L"Run", L"Project"});
    for (const PlannedRun& run : runs) {
        AppendCsvRow(text, {TimeOf(run), run.task->m_strProjectPath});
    }
    return text;
}

std::string RunsAsJson(const std::wstring& list, std::int64_t now, const std::vector<PlannedRun>& runs) {
    Json json = ReportHead(list, now);
    json["runs"] = Json::array();
    for (const PlannedRun& run : runs) {
        Json entry;
        AddTime(entry, "time", run.time);
        entry["project"] = run.task->m_strProjectPath;
        entry["section"] = run.task->m_strIniSection;
        json["runs"].push_back(std::move(entry));
    }
    return DumpJson(json) + '\n';
}

std::int64_t EndOfWeek(std::int64_t now) {
    const LocalTime last = DaysOfWeek(now).back();
    return FromLocalTime(last.year, last.month, last.day, 23, 59, 59);
}

WeekGrid CountStarts(const std::vector<PlannedRun>& runs, std::int64_t now) {
    WeekGrid week;
    const auto days = DaysOfWeek(now);
    for (std::size_t i = 0; i < days.size(); ++i) {
        week.days[i].date =
            FormatMinute(FromLocalTime(days[i].year, days[i].month, days[i].day, 12, 0, 0)).substr(0, 10);
        constexpr const wchar_t* kNames[] = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
        week.days[i].name = kNames[days[i].weekday] + (L' ' + week.days[i].date.substr(8));
    }
    std::int64_t minute = 0;
    int atOnce = 0;
    for (const PlannedRun& run : runs) {
        const LocalTime local = ToLocalTime(run.time);
        const auto* const day = std::find_if(days.begin(), days.end(), [&](const LocalTime& date) {
            return std::tie(date.year, date.month, date.day) == std::tie(local.year, local.month, local.day);
        });
        if (day != days.end()) {
            ++week.days[day - days.begin()].starts[local.hour];
        }
        atOnce = run.time / 60 == minute ? atOnce + 1 : 1;
        minute = run.time / 60;
        if (atOnce > week.most) {
            week.most = atOnce;
            week.mostAt = minute * 60;
        }
    }
    return week;
}

std::string WeekAsText(const WeekGrid& week) {
    int most = 0;
    for (const WeekGrid::Day& day : week.days) {
        most = std::max(most, *std::max_element(std::begin(day.starts), std::end(day.starts)));
    }
    const std::size_t width = std::max<std::size_t>(3, std::to_string(most).size() + 1);
    const auto cell = [&](const std::string& text) { return std::string(width - text.size(), ' ') + text; };
    std::string text = "      ";
    for (int hour = 0; hour < kHours; ++hour) {
        text += cell(Join(hour < 10 ? "0" : "", std::to_string(hour)));
    }
    for (const WeekGrid::Day& day : week.days) {
        text += Join("\n", day.name);
        for (const int starts : day.starts) {
            text += cell(starts == 0 ? "." : std::to_string(starts));
        }
    }
    text += '\n';
    if (week.most > 1) {
        text += Join("Most starts in one minute: ", std::to_string(week.most), ", first at ",
                     FormatMinute(week.mostAt), ".\n");
    }
    return text;
}

std::string WeekAsCsv(const WeekGrid& week) {
    std::string text(kCsvStart);
    std::vector<std::wstring> row = {L"Date"};
    for (int hour = 0; hour < kHours; ++hour) {
        row.push_back(std::to_wstring(hour));
    }
    AppendCsvRow(text, row);
    for (const WeekGrid::Day& day : week.days) {
        row = {day.date};
        for (const int starts : day.starts) {
            row.push_back(std::to_wstring(starts));
        }
        AppendCsvRow(text, row);
    }
    return text;
}

std::string WeekAsJson(const std::wstring& list, std::int64_t now, const WeekGrid& week) {
    Json json = ReportHead(list, now);
    json["days"] = Json::array();
    for (const WeekGrid::Day& day : week.days) {
        json["days"].push_back({{"date", day.date}, {"starts", day.starts}});
    }
    json["most"]["starts"] = week.most;
    AddTime(json["most"], "time", week.mostAt);
    return DumpJson(json) + '\n';
}
