#include "core/check/TaskCheck.h"

#include <algorithm>
#include <chrono>
#include <cwctype>
#include <limits>
#include <utility>

#include "core/check/Check.h"
#include "core/launch/ExtractionProgram.h"
#include "core/launch/LaunchResult.h"
#include "core/list/TaskSection.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "core/schedule/ScheduleText.h"
#include "core/schedule/TimeText.h"
#include "core/schedule/WallClock.h"
#include "core/task/CommandLine.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskSwitches.h"
#include "util/ExceptionText.h"
#include "util/Path.h"

namespace {

constexpr std::int64_t kLastStoredInstant = std::numeric_limits<std::int32_t>::max();

// Collects the findings of one task.
class TaskChecker {
public:
    TaskChecker(std::vector<Finding>& findings, const CSCVShchedulerTask& task, std::int64_t now)
        : m_findings(findings), m_task(task), m_now(now) {}

    void CheckProject(bool isThere, const std::wstring& whyNotStarted);
    // `stored` is the command line as the file holds it, without its outer quotes.
    void CheckStoredText(std::wstring_view stored);
    void CheckArguments();
    void CheckLastRun();
    void CheckTimes();
    void CheckEvery(const std::vector<ClockChange>& changes);
    void CheckClockChanges(const std::vector<ClockChange>& changes);

private:
    void CheckClockChange(const ClockChange& change, int minuteOfDay);

    void Add(std::wstring message) {
        m_findings.push_back({m_task.m_strProjectPath, m_task.m_strIniSection, std::move(message)});
    }
    // Whether the weekday or the monthly rule gives a run on that local date.
    [[nodiscard]] bool RunsOn(std::chrono::sys_days day) const;

    std::vector<Finding>& m_findings;
    const CSCVShchedulerTask& m_task;
    std::int64_t m_now;
};

void TaskChecker::CheckProject(bool isThere, const std::wstring& whyNotStarted) {
    if (!isThere) {
        Add(L"the project file does not exist");
    }
    const std::wstring extension = GetFileExtension(m_task.m_strProjectPath);
    if (!IsProjectExtension(extension)) {
        Add(L"the extension '" + extension + L"' is neither scvpr nor oslpr");
    }
    if (!whyNotStarted.empty()) {
        Add(whyNotStarted);
    }
}

void TaskChecker::CheckStoredText(std::wstring_view stored) {
    const std::wstring commandLine = m_task.BuildCommandLine();
    const auto apostrophes =
        static_cast<std::size_t>(std::count(commandLine.begin(), commandLine.end(), L'\''));
    const std::size_t length = std::max(stored.size(), commandLine.size() + apostrophes);
    if (length > kLongestText) {
        Add(L"the command line has " + std::to_wstring(length) + L" characters in the file, of which " +
            std::to_wstring(kLongestText) + L" are read");
    }
    if (apostrophes != 0) {
        Add(L"an apostrophe in the command line is doubled by every load and save");
    }
    if (m_task.m_strLastRunResult.find(L'\'') != std::wstring::npos) {
        Add(L"an apostrophe in the last result is doubled by every load and save");
    }
    constexpr std::int32_t kNameIdFile = 3;
    if (CountInputValues(stored) > kNameIdFile ||
        (m_task.m_strInputElementName + m_task.m_strInputElementId).find(L',') != std::wstring::npos) {
        Add(L"a comma in the input element's name or id shifts name, id and file");
    }
}

void TaskChecker::CheckArguments() {
    for (const TaskSwitch& row : kTaskSwitches) {
        if (m_task.*row.flag == 0 || row.argument != TaskSwitch::Argument::Required) {
            continue;
        }
        std::wstring caption(row.caption);
        caption.front() = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(caption.front())));
        const std::wstring name = L'-' + std::wstring(row.letters) + L" (" + caption + L')';
        if ((m_task.*row.text).empty()) {
            Add(name + L" has no file and is left out");
        }
        if (row.LacksElement(m_task)) {
            Add(name + L" has neither element name nor id and is left out");
        }
    }
}

void TaskChecker::CheckLastRun() {
    if (HasFailed(m_task)) {
        Add(L"the last run (" + FormatMinute(m_task.m_tLastRunTime) + L") failed: " +
            m_task.m_strLastRunResult);
    }
}

void TaskChecker::CheckTimes() {
    const std::pair<std::int64_t, const wchar_t*> times[] = {{m_task.m_tStartTime, L"start time"},
                                                             {m_task.m_tUntilTime, L"until time"},
                                                             {m_task.m_tLastRunTime, L"last run time"}};
    for (const auto& [time, name] : times) {
        if (time >= kLastStoredInstant) {
            Add(std::wstring(L"the ") + name +
                L" lies at or past 2038-01-19, the last day that the file can hold");
        }
    }
    if (m_task.m_tLastRunTime > m_now) {
        Add(L"the last run lies in the future (" + FormatMinute(m_task.m_tLastRunTime) +
            L"), the task waits for it");
    }
    try {
        (void)m_task.GetNextRunTime(m_now);
    } catch (const std::exception& error) {
        Add(L"the next run cannot be computed (" + FromWhat(error) +
            L"), which stops every pass at this task; disable it, remove it, or set a new start");
    }
}

void TaskChecker::CheckEvery(const std::vector<ClockChange>& changes) {
    if (m_task.m_bEnableEvery != 0 && !m_task.IsEveryActive()) {
        Add(L"the Every rule is inactive, as its count is " + std::to_wstring(m_task.m_nEveryValue));
        return;
    }
    if (m_task.m_bEnable == 0) {
        return;
    }
    if (const std::wstring end = EndForGoodText(m_task, m_now, changes); !end.empty()) {
        Add(L"the Every rule " + end);
    }
}

bool TaskChecker::RunsOn(std::chrono::sys_days day) const {
    const std::chrono::weekday weekday(day);
    return m_task.RepeatsOnWeekday(static_cast<int>(weekday.c_encoding()) + 1) != 0 ||
           (m_task.m_bRepeatOnMonthly != 0 && std::chrono::year_month_day(day).day() == std::chrono::day(1));
}

void TaskChecker::CheckClockChange(const ClockChange& change, int minuteOfDay) {
    const std::int64_t first = std::min(change.before, change.after);
    const std::int64_t last = std::max(change.before, change.after);
    for (std::int64_t midnight = first - first % kSecondsPerDay; midnight < last;
         midnight += kSecondsPerDay) {
        const std::chrono::sys_days day{std::chrono::days(midnight / kSecondsPerDay)};
        if (!RunsOn(day) || !change.Covers(midnight + minuteOfDay * 60)) {
            continue;
        }
        Add(L"the time of day " + FormatTimeOfDay(minuteOfDay) +
            (change.Skips() ? L" is skipped" : L" comes twice") + L" in the clock change of " +
            FormatMinute(change.at).substr(0, 10));
    }
}

void TaskChecker::CheckClockChanges(const std::vector<ClockChange>& changes) {
    const LocalTime start = ToLocalTime(m_task.m_tStartTime);
    if (m_task.m_bEnable == 0 || start.hour < 0) {
        return;
    }
    // With an Every rule, flagged days begin at midnight; the first of the month keeps the start time.
    const bool fromMidnight = m_task.IsEveryActive() && m_task.HasWeekdayRepeat() != 0;
    for (const ClockChange& change : changes) {
        CheckClockChange(change, fromMidnight ? 0 : MinuteOfDay(start));
    }
}

}  // namespace

CTaskCheck::CTaskCheck(IShell& shell, std::int64_t now)
    : m_shell(shell), m_now(now), m_changes(ClockChangesOfYear(now)) {}

const std::wstring& CTaskCheck::WhyNotStarted(const std::wstring& project) {
    const auto [known, isNew] = m_whyNotStarted.try_emplace(GetFileExtension(project));
    if (isNew) {
        const std::wstring program = FindExtractionProgram(m_shell, project);
        if (program.empty()) {
            known->second =
                L"no program is registered for the project, or its path is longer than the 126 characters "
                L"that are read";
        } else if (!m_shell.FileExists(program)) {
            known->second = L"the program " + program + L" does not exist";
        }
    }
    return known->second;
}

void CTaskCheck::AddFindings(const CSCVShchedulerTask& task, std::wstring_view stored,
                             std::vector<Finding>& findings) {
    const std::wstring& project = task.m_strProjectPath;
    TaskChecker checker(findings, task, m_now);
    checker.CheckProject(m_shell.FileExists(project), WhyNotStarted(project));
    checker.CheckStoredText(stored);
    checker.CheckArguments();
    checker.CheckLastRun();
    checker.CheckTimes();
    checker.CheckEvery(m_changes);
    checker.CheckClockChanges(m_changes);
}
