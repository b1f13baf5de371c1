#include "cli/options/TaskChanges.h"

#include <algorithm>

#include "cli/report/Refusal.h"
#include "core/platform/LocalTime.h"

namespace {

// The instant of this minute of the day on the first date, from today on, on which no clock change skips it.
std::int64_t InstantAt(int minuteOfDay, std::int64_t now) {
    for (std::int64_t day = 0;; ++day) {
        const LocalTime date = ToLocalTime(now + day * kSecondsPerDay);
        const std::int64_t instant =
            FromLocalTime(date.year, date.month, date.day, minuteOfDay / 60, minuteOfDay % 60, 0);
        const LocalTime local = ToLocalTime(instant);
        if (local.hour * 60 + local.minute == minuteOfDay || day > 1) {
            return instant;
        }
    }
}

void Require(bool condition, const char* sentence) {
    if (!condition) {
        throw CRefusal(sentence);
    }
}

}  // namespace

bool TaskChanges::ChangesCommands() const {
    return !commands.empty() || noExportFile || elementName || elementId;
}

bool TaskChanges::ChangesSchedule() const {
    return start || days || monthly || every || until || resetLastRun;
}

bool TaskChanges::IsEmpty() const {
    return !ChangesSchedule() && !ChangesCommands() && !disabled;
}

bool TaskChanges::SwitchesACommandOn() const {
    return std::any_of(commands.begin(), commands.end(), [](const Command& change) { return change.isOn; });
}

void TaskChanges::ApplyTo(CSCVShchedulerTask& task, std::int64_t now) const {
    if (disabled) {
        task.m_bEnable = 0;
    }
    ApplyTimes(task);
    ApplyRepeat(task, now);
    ApplyCommands(task);
    ApplyElement(task);
}

void TaskChanges::ApplyTimes(CSCVShchedulerTask& task) const {
    task.m_tStartTime = start.value_or(task.m_tStartTime);
    if (resetLastRun) {
        task.m_tLastRunTime = 0;
        task.m_strLastRunResult.clear();
    }
}

void TaskChanges::ApplyRepeat(CSCVShchedulerTask& task, std::int64_t now) const {
    if (days) {
        for (const TaskDay& day : kTaskDays) {
            task.*day.flag = std::find(days->begin(), days->end(), &day) == days->end() ? 0 : 1;
        }
    }
    if (monthly) {
        task.m_bRepeatOnMonthly = *monthly ? 1 : 0;
    }
    if (every) {
        task.m_bEnableEvery = every->value == 0 ? 0 : 1;
        if (every->value != 0) {
            task.m_nEveryValue = every->value;
            task.m_nEveryUnit = every->unit;
        }
    }
    if (until) {
        Require(task.m_bEnableEvery != 0, "--until needs a task that repeats; add --every");
        // The date does not count, so an until time with this time of day stays unchanged.
        const LocalTime old = ToLocalTime(task.m_tUntilTime);
        if (old.hour * 60 + old.minute != *until) {
            task.m_tUntilTime = InstantAt(*until, now);
        }
    }
}

void TaskChanges::ApplyCommands(CSCVShchedulerTask& task) const {
    for (const Command& change : commands) {
        if (change.isOn) {
            change.command->SwitchOn(task, change.argument);
        } else {
            change.command->SwitchOff(task);
        }
    }
    if (noExportFile) {
        task.m_strExportFile.clear();
    }
}

void TaskChanges::ApplyElement(CSCVShchedulerTask& task) const {
    if (elementName || elementId) {
        Require(task.m_bImportInputValues != 0, "--element-name and --element-id need --import-values");
        task.m_strInputElementName = elementName.value_or(task.m_strInputElementName);
        task.m_strInputElementId = elementId.value_or(task.m_strInputElementId);
    }
    Require(!ChangesCommands() || task.m_bImportInputValues == 0 || !task.m_strInputElementName.empty() ||
                !task.m_strInputElementId.empty(),
            "--import-values needs --element-name or --element-id");
}
