#pragma once

#include <cstdint>

#include "core/task/SCVShchedulerTask.h"

// Weekdays of Rules::days.
inline constexpr unsigned kSun = 1, kMon = 2, kTue = 4, kWed = 8, kThu = 16, kFri = 32, kSat = 64,
                          kDaily = 127;

// The schedule of a task, in one expression and copyable, which a task itself is not.
struct Rules {
    std::int64_t start = 0;
    std::int64_t last = 0;  // the last run; 0 is never
    unsigned days = 0;
    bool monthly = false;
    bool isEvery = false;
    std::int32_t every = 1;
    std::int32_t unit = 0;  // of `every`: 1 is hours, else minutes
    std::int64_t until = 0;
};

inline void SetRules(CSCVShchedulerTask& task, const Rules& rules) {
    using Task = CSCVShchedulerTask;
    task.m_tStartTime = rules.start;
    task.m_tLastRunTime = rules.last;
    task.m_tUntilTime = rules.until;
    const auto days = {&Task::m_bRepeatOnSun, &Task::m_bRepeatOnMon, &Task::m_bRepeatOnTue,
                       &Task::m_bRepeatOnWen, &Task::m_bRepeatOnThu, &Task::m_bRepeatOnFri,
                       &Task::m_bRepeatOnSat};
    for (int day = 0; const auto flag : days) {
        task.*flag = static_cast<std::int32_t>(rules.days >> day++ & 1);
    }
    task.m_bRepeatOnMonthly = rules.monthly;
    task.m_bEnableEvery = rules.isEvery;
    task.m_nEveryValue = rules.every;
    task.m_nEveryUnit = rules.unit;
}

inline std::int64_t NextRun(const Rules& rules, std::int64_t now) {
    CSCVShchedulerTask task;
    SetRules(task, rules);
    return task.GetNextRunTime(now);
}
