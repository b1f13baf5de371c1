#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"
#include "core/task/TaskSwitches.h"

// The changes by the options of add and set. A field without a value changes nothing.
struct TaskChanges {
    struct Every {
        std::int32_t value = 0;  // 0 switches the rule off
        std::int32_t unit = 0;   // 1 hours, 0 minutes
    };
    struct Command {
        const TaskSwitch* command;
        bool isOn;
        std::wstring argument;  // with isOn: the file; empty keeps the file of the task
    };

    std::optional<std::int64_t> start;  // seconds since 1970
    std::optional<std::vector<const TaskDay*>> days;
    std::optional<bool> monthly;
    std::optional<Every> every;
    std::optional<int> until;  // minute of the day
    std::vector<Command> commands;
    bool noExportFile = false;
    std::optional<std::wstring> elementName;
    std::optional<std::wstring> elementId;
    bool disabled = false;
    bool resetLastRun = false;

    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] bool ChangesCommands() const;
    [[nodiscard]] bool ChangesSchedule() const;
    [[nodiscard]] bool SwitchesACommandOn() const;

    // Throws CRefusal, with the task partly changed, when the task could not do what the options say.
    void ApplyTo(CSCVShchedulerTask& task, std::int64_t now) const;

private:
    void ApplyTimes(CSCVShchedulerTask& task) const;
    void ApplyRepeat(CSCVShchedulerTask& task, std::int64_t now) const;
    void ApplyCommands(CSCVShchedulerTask& task) const;
    void ApplyElement(CSCVShchedulerTask& task) const;
};
