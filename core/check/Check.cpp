#include "core/check/Check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <limits>
#include <map>
#include <utility>

#include "core/launch/ExtractionProgram.h"
#include "core/list/PrivateProfile.h"
#include "core/list/StoredKeys.h"
#include "core/list/TaskListFile.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "core/schedule/ClockChanges.h"
#include "core/schedule/NextRuns.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "core/task/TaskSwitches.h"
#include "util/CaseFold.h"
#include "util/Csv.h"
#include "util/Path.h"
#include "util/Utf8.h"

namespace {

constexpr std::int64_t kYear = 366 * kSecondsPerDay;
constexpr std::int64_t kLastStoredInstant = std::numeric_limits<std::int32_t>::max();

// Collects the findings of one task.
class TaskChecker {
public:
    TaskChecker(std::vector<Finding>& findings, CSCVShchedulerTask& task)
        : m_findings(findings), m_task(task) {}

    void CheckProject(IShell& shell);
    void CheckStoredText(const CPrivateProfile& profile);
    void CheckArguments();
    void CheckTimes(std::int64_t now);
    void CheckEvery(std::int64_t now);
    void CheckClockChanges(const std::vector<ClockChange>& changes);

private:
    void Add(std::string message) {
        m_findings.push_back({m_task.m_strProjectPath, m_task.m_strIniSection, std::move(message)});
    }
    [[nodiscard]] bool IsEveryActive() const {
        return m_task.m_bEnableEvery != 0 && m_task.m_nEveryValue >= 1;
    }
    // Whether weekday or monthly rule asks for a run on the local date that `day` days after 1970-01-01 is.
    [[nodiscard]] bool RunsOn(std::chrono::sys_days day) const;

    std::vector<Finding>& m_findings;
    CSCVShchedulerTask& m_task;
};

void TaskChecker::CheckProject(IShell& shell) {
    const std::wstring& project = m_task.m_strProjectPath;
    if (!shell.FileExists(project)) {
        Add("the project file does not exist");
    }
    const std::wstring extension = GetFileExtension(project);
    if (!IsProjectExtension(extension)) {
        Add("the extension '" + ToUtf8(extension) + "' is neither scvpr nor oslpr");
    }
    const std::wstring program = FindExtractionProgram(shell, project);
    if (program.empty()) {
        Add("no program is registered for the project, or its path is longer than the 126 characters that "
            "are read");
    } else if (!shell.FileExists(program)) {
        Add("the program " + ToUtf8(program) + " does not exist");
    }
}

// The number of values in the comma list of the input values switch; 0 when the switch is absent.
std::ptrdiff_t InputValuesFields(const std::wstring& commandLine) {
    CCsv tokens;
    tokens.Split(commandLine, L' ', true, true);
    for (std::wstring token : tokens) {
        if (token.size() < 4 ||
            (!EqualNoCase(token.substr(0, 4), L"-aiv") && !EqualNoCase(token.substr(0, 4), L"/aiv"))) {
            continue;
        }
        token.erase(0, 4);
        token.erase(0, std::min(token.find_first_not_of(L'"'), token.size()));
        token.erase(token.find_last_not_of(L'"') + 1);
        CCsv fields;
        return fields.Split(token, L',', true, false);
    }
    return 0;
}

void TaskChecker::CheckStoredText(const CPrivateProfile& profile) {
    const std::wstring stored =
        profile.GetString(m_task.m_strIniSection, kCommandLineKey).value_or(std::wstring());
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
    constexpr std::ptrdiff_t kNameIdFile = 3;
    if (InputValuesFields(stored) > kNameIdFile ||
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

void TaskChecker::CheckTimes(std::int64_t now) {
    const std::pair<std::int64_t, const char*> times[] = {{m_task.m_tStartTime, "start time"},
                                                          {m_task.m_tUntilTime, "until time"},
                                                          {m_task.m_tLastRunTime, "last run time"}};
    for (const auto& [time, name] : times) {
        if (time >= kLastStoredInstant) {
            Add(std::string("the ") + name +
                " lies at or past 2038-01-19, the last day that the file can hold");
        }
    }
    if (m_task.m_tLastRunTime > now) {
        Add("the last run lies in the future (" + FormatMinute(m_task.m_tLastRunTime) +
            "), the task waits for it");
    }
    try {
        (void)m_task.GetNextRunTime(now);
    } catch (const std::exception& error) {
        Add(std::string("the next run cannot be computed (") + error.what() +
            "), which stops every pass at this task");
    }
}

void TaskChecker::CheckEvery(std::int64_t now) {
    if (m_task.m_bEnableEvery == 0) {
        return;
    }
    if (m_task.m_nEveryValue < 1) {
        Add("the Every rule is inactive, as its count is " + std::to_string(m_task.m_nEveryValue));
        return;
    }
    if (m_task.HasWeekdayRepeat() != 0 || m_task.m_bRepeatOnMonthly != 0 || m_task.m_bEnable == 0) {
        return;
    }
    // A rule that runs into the next day goes on for good: one day of the shortest repeats shows it.
    constexpr int kMostRunsOfADay = 25 * 60 + 1;
    const std::vector<std::int64_t> runs = NextRuns(m_task, now, kMostRunsOfADay);
    const LocalTime today = ToLocalTime(now);
    const LocalTime last = ToLocalTime(runs.empty() ? now : runs.back());
    if (runs.empty()) {
        Add("the Every rule has ended for good, as the next run would be later than the until time");
    } else if (runs.size() < kMostRunsOfADay && last.day == today.day && last.month == today.month &&
               last.year == today.year) {
        Add("the Every rule ends for good today with the run of " + FormatMinute(runs.back()));
    }
}

bool TaskChecker::RunsOn(std::chrono::sys_days day) const {
    const std::chrono::weekday weekday(day);
    return m_task.RepeatsOnWeekday(static_cast<int>(weekday.c_encoding()) + 1) != 0 ||
           (m_task.m_bRepeatOnMonthly != 0 && std::chrono::year_month_day(day).day() == std::chrono::day(1));
}

void TaskChecker::CheckClockChanges(const std::vector<ClockChange>& changes) {
    const LocalTime start = ToLocalTime(m_task.m_tStartTime);
    if (m_task.m_bEnable == 0 || start.hour < 0) {
        return;
    }
    for (const ClockChange& change : changes) {
        const std::int64_t first = std::min(change.before, change.after);
        const std::int64_t last = std::max(change.before, change.after);
        for (std::int64_t midnight = first - first % kSecondsPerDay; midnight < last;
             midnight += kSecondsPerDay) {
            const std::chrono::sys_days day{std::chrono::days(midnight / kSecondsPerDay)};
            // Beside an Every rule the flagged days begin at midnight; the first of the month keeps the start
            // time.
            const bool fromMidnight = IsEveryActive() && m_task.HasWeekdayRepeat() != 0;
            const std::int64_t minute = fromMidnight ? 0 : start.hour * 60 + start.minute;
            if (!RunsOn(day) || !change.Covers(midnight + minute * 60)) {
                continue;
            }
            std::array<char, 8> timeOfDay{};
            std::snprintf(timeOfDay.data(), timeOfDay.size(), "%02d:%02d", static_cast<int>(minute / 60 % 24),
                          static_cast<int>(minute % 60));
            Add(std::string("the time of day ") + timeOfDay.data() +
                (change.Skips() ? " is skipped" : " comes twice") + " in the clock change of " +
                FormatMinute(change.at).substr(0, 10));
        }
    }
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
            findings.push_back(
                {task.m_strProjectPath, task.m_strIniSection,
                 "the project is listed twice, first in " + ToUtf8(first->second->m_strIniSection)});
        }
    }
}

// Sections that TaskCount names and that hold no task, a line for each unbroken row of missing ones.
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

std::vector<Finding> FindProblems(const CPrivateProfile& profile, CSCVShchedulerTaskArray& tasks,
                                  IShell& shell, std::int64_t now) {
    std::vector<Finding> findings;
    const std::vector<ClockChange> changes = ClockChanges(now, now + kYear);
    CheckSections(findings, profile, tasks);
    CheckDuplicates(findings, tasks);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        TaskChecker checker(findings, *tasks[i]);
        checker.CheckProject(shell);
        checker.CheckStoredText(profile);
        checker.CheckArguments();
        checker.CheckTimes(now);
        checker.CheckEvery(now);
        checker.CheckClockChanges(changes);
    }
    return findings;
}
