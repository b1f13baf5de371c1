#include "core/check/Check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <limits>
#include <map>
#include <utility>

#include "core/launch/ExtractionProgram.h"
#include "core/launch/LaunchResult.h"
#include "core/list/PrivateProfile.h"
#include "core/list/Storable.h"
#include "core/list/StoredKeys.h"
#include "core/list/TaskListFile.h"
#include "core/list/TaskSection.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "core/schedule/ClockChanges.h"
#include "core/schedule/ScheduleText.h"
#include "core/schedule/TimeText.h"
#include "core/schedule/WallClock.h"
#include "core/task/CommandLine.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "core/task/TaskSwitches.h"
#include "util/CaseFold.h"
#include "util/Path.h"
#include "util/Utf8.h"

namespace {

constexpr std::int64_t kLastStoredInstant = std::numeric_limits<std::int32_t>::max();

// Problems with the program that starts projects of an extension, looked up once for each extension.
class ProgramChecker {
public:
    explicit ProgramChecker(IShell& shell) : m_shell(shell) {}

    [[nodiscard]] IShell& Shell() const { return m_shell; }
    // Empty when nothing is wrong.
    const std::string& WhyNotStarted(const std::wstring& project);

private:
    IShell& m_shell;
    std::map<std::wstring, std::string> m_known;  // by extension
};

const std::string& ProgramChecker::WhyNotStarted(const std::wstring& project) {
    const auto [known, isNew] = m_known.try_emplace(GetFileExtension(project));
    if (isNew) {
        const std::wstring program = FindExtractionProgram(m_shell, project);
        if (program.empty()) {
            known->second =
                "no program is registered for the project, or its path is longer than the 126 characters "
                "that are read";
        } else if (!m_shell.FileExists(program)) {
            known->second = "the program " + ToUtf8(program) + " does not exist";
        }
    }
    return known->second;
}

// Collects the findings of one task.
class TaskChecker {
public:
    TaskChecker(std::vector<Finding>& findings, const CSCVShchedulerTask& task, std::int64_t now)
        : m_findings(findings), m_task(task), m_now(now) {}

    // `stored` is the command line as the file holds it, without its outer quotes.
    void CheckAll(ProgramChecker& programs, std::wstring_view stored,
                  const std::vector<ClockChange>& changes);

private:
    void CheckProject(ProgramChecker& programs);
    void CheckStoredText(std::wstring_view stored);
    void CheckArguments();
    void CheckLastRun();
    void CheckTimes();
    void CheckEvery(const std::vector<ClockChange>& changes);
    void CheckClockChanges(const std::vector<ClockChange>& changes);
    void CheckClockChange(const ClockChange& change, int minuteOfDay);

    void Add(std::string message) {
        m_findings.push_back({m_task.m_strProjectPath, m_task.m_strIniSection, std::move(message)});
    }
    // Whether the weekday or the monthly rule gives a run on that local date.
    [[nodiscard]] bool RunsOn(std::chrono::sys_days day) const;

    std::vector<Finding>& m_findings;
    const CSCVShchedulerTask& m_task;
    std::int64_t m_now;
};

void TaskChecker::CheckAll(ProgramChecker& programs, std::wstring_view stored,
                           const std::vector<ClockChange>& changes) {
    CheckProject(programs);
    CheckStoredText(stored);
    CheckArguments();
    CheckLastRun();
    CheckTimes();
    CheckEvery(changes);
    CheckClockChanges(changes);
}

void TaskChecker::CheckProject(ProgramChecker& programs) {
    const std::wstring& project = m_task.m_strProjectPath;
    if (!programs.Shell().FileExists(project)) {
        Add("the project file does not exist");
    }
    const std::wstring extension = GetFileExtension(project);
    if (!IsProjectExtension(extension)) {
        Add("the extension '" + ToUtf8(extension) + "' is neither scvpr nor oslpr");
    }
    if (const std::string& why = programs.WhyNotStarted(project); !why.empty()) {
        Add(why);
    }
}

void TaskChecker::CheckStoredText(std::wstring_view stored) {
    const std::wstring commandLine = m_task.BuildCommandLine();
    const auto apostrophes =
        static_cast<std::size_t>(std::count(commandLine.begin(), commandLine.end(), L'\''));
    const std::size_t length = std::max(stored.size(), commandLine.size() + apostrophes);
    if (length > kLongestText) {
        Add("the command line has " + std::to_string(length) + " characters in the file, of which " +
            std::to_string(kLongestText) + " are read");
    }
    if (apostrophes != 0) {
        Add("an apostrophe in the command line is doubled by every load and save");
    }
    if (m_task.m_strLastRunResult.find(L'\'') != std::wstring::npos) {
        Add("an apostrophe in the last result is doubled by every load and save");
    }
    constexpr std::int32_t kNameIdFile = 3;
    if (CountInputValues(stored) > kNameIdFile ||
        (m_task.m_strInputElementName + m_task.m_strInputElementId).find(L',') != std::wstring::npos) {
        Add("a comma in the input element's name or id shifts name, id and file");
    }
}

void TaskChecker::CheckArguments() {
    for (const TaskSwitch& row : kTaskSwitches) {
        if (m_task.*row.flag == 0 || row.argument != TaskSwitch::Argument::Required) {
            continue;
        }
        std::string caption = row.caption;
        caption.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(caption.front())));
        std::string name = "-";
        name += ToUtf8(row.letters) + " (" + caption + ")";
        if ((m_task.*row.text).empty()) {
            Add(name + " has no file and is left out");
        }
        if (row.LacksElement(m_task)) {
            Add(name + " has neither element name nor id and is left out");
        }
    }
}

void TaskChecker::CheckLastRun() {
    if (HasFailed(m_task)) {
        Add("the last run (" + FormatMinute(m_task.m_tLastRunTime) +
            ") failed: " + ToUtf8(m_task.m_strLastRunResult));
    }
}

void TaskChecker::CheckTimes() {
    const std::pair<std::int64_t, const char*> times[] = {{m_task.m_tStartTime, "start time"},
                                                          {m_task.m_tUntilTime, "until time"},
                                                          {m_task.m_tLastRunTime, "last run time"}};
    for (const auto& [time, name] : times) {
        if (time >= kLastStoredInstant) {
            Add(std::string("the ") + name +
                " lies at or past 2038-01-19, the last day that the file can hold");
        }
    }
    if (m_task.m_tLastRunTime > m_now) {
        Add("the last run lies in the future (" + FormatMinute(m_task.m_tLastRunTime) +
            "), the task waits for it");
    }
    try {
        (void)m_task.GetNextRunTime(m_now);
    } catch (const std::exception& error) {
        Add(std::string("the next run cannot be computed (") + error.what() +
            "), which stops every pass at this task; disable it, remove it, or set a new start");
    }
}

void TaskChecker::CheckEvery(const std::vector<ClockChange>& changes) {
    if (m_task.m_bEnableEvery != 0 && !m_task.IsEveryActive()) {
        Add("the Every rule is inactive, as its count is " + std::to_string(m_task.m_nEveryValue));
        return;
    }
    if (m_task.m_bEnable == 0) {
        return;
    }
    if (const std::string end = EndForGoodText(m_task, m_now, changes); !end.empty()) {
        Add("the Every rule " + end);
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
        std::array<char, 16> timeOfDay{};
        std::snprintf(timeOfDay.data(), timeOfDay.size(), "%02d:%02d", minuteOfDay / 60, minuteOfDay % 60);
        Add(std::string("the time of day ") + timeOfDay.data() +
            (change.Skips() ? " is skipped" : " comes twice") + " in the clock change of " +
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

void AddDuplicate(std::vector<Finding>& findings, const CSCVShchedulerTask& task,
                  const CSCVShchedulerTask& first) {
    findings.push_back({task.m_strProjectPath, task.m_strIniSection,
                        "the project is listed twice, first in " + ToUtf8(first.m_strIniSection)});
}

void CheckDuplicates(std::vector<Finding>& findings, const CSCVShchedulerTaskArray& tasks) {
    const auto less = [](const std::wstring* left, const std::wstring* right) {
        return CompareNoCase(*left, *right) < 0;
    };
    std::map<const std::wstring*, const CSCVShchedulerTask*, decltype(less)> seen(less);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        const CSCVShchedulerTask& task = *tasks[i];
        const auto [first, isNew] = seen.emplace(&task.m_strProjectPath, &task);
        if (!isNew) {
            AddDuplicate(findings, task, *first->second);
        }
    }
}

// Finds sections within TaskCount that hold no task, with one finding for each range of missing ones.
void CheckSections(std::vector<Finding>& findings, const CPrivateProfile& profile,
                   const CSCVShchedulerTaskArray& tasks) {
    const std::int32_t count = profile.GetInt(kTaskListSection, kTaskCountKey, 0);
    std::int64_t expected = 1;
    const auto addMissing = [&](std::int64_t next) {
        if (next > expected) {
            const std::wstring last = TaskSectionName(static_cast<std::int32_t>(next - 1));
            findings.push_back({L"", TaskSectionName(static_cast<std::int32_t>(expected)),
                                next - 1 == expected
                                    ? "the section is missing"
                                    : "the sections up to " + ToUtf8(last) + " are missing"});
        }
        expected = next + 1;
    };
    std::ptrdiff_t loaded = 0;
    for (const std::int32_t number : FindTaskSections(profile, 1, count)) {
        addMissing(number);
        const std::wstring name = TaskSectionName(number);
        if (loaded < tasks.GetSize() && tasks[loaded]->m_strIniSection == name) {
            ++loaded;
        } else {
            findings.push_back({L"", name, "the section names no project"});
        }
    }
    addMissing(std::int64_t{count} + 1);
}

}  // namespace

std::vector<Finding> FindProblems(const CPrivateProfile& profile, const CSCVShchedulerTaskArray& tasks,
                                  IShell& shell, std::int64_t now) {
    std::vector<Finding> findings;
    ProgramChecker programs(shell);
    const std::vector<ClockChange> changes = ClockChangesOfYear(now);
    CheckSections(findings, profile, tasks);
    CheckDuplicates(findings, tasks);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        const CSCVShchedulerTask& task = *tasks[i];
        const auto stored = profile.GetString(task.m_strIniSection, kCommandLineKey);
        TaskChecker(findings, task, now).CheckAll(programs, stored.value_or(std::wstring()), changes);
    }
    return findings;
}

std::vector<Finding> FindProblemsOf(const CSCVShchedulerTask& task, const CSCVShchedulerTaskArray& tasks,
                                    IShell& shell, std::int64_t now) {
    std::vector<Finding> findings;
    ProgramChecker programs(shell);
    const std::ptrdiff_t first = tasks.FindTask(task.m_strProjectPath);
    if (first >= 0 && tasks[first] != &task) {
        AddDuplicate(findings, task, *tasks[first]);
    }
    TaskChecker(findings, task, now)
        .CheckAll(programs, DoubledApostrophes(task.BuildCommandLine()), ClockChangesOfYear(now));
    return findings;
}
