#pragma once

#include <cstdint>

#include "core/SCVShchedulerTask.h"

// Weekdays of Rules::days.
inline constexpr unsigned kSun = 1, kMon = 2, kTue = 4, kWed = 8, kThu = 16, kFri = 32, kSat = 64,
                          kDaily = 127;

// When a task runs, in one expression; tasks themselves cannot be copied.
struct Rules {
    std::int64_t start = 0;
    std::int64_t last = 0;  // 0 is never
    unsigned days = 0;
    bool monthly = false;
    bool isEvery = false;
    std::int32_t every = 1;
    std::int32_t unit = 0;  // 1 is hours
    std::int64_t until = 0;
};

inline void SetRules(CSCVShchedulerTask& task, const Rules& rules) {
    task.m_tStartTime = rules.start;
    task.m_tLastRunTime = rules.last;
    task.m_tUntilTime = rules.until;
    task.m_bRepeatOnSun = (rules.days & kSun) != 0;
    task.m_bRepeatOnMon = (rules.days & kMon) != 0;
    task.m_bRepeatOnTue = (rules.days & kTue) != 0;
    task.m_bRepeatOnWen = (rules.days & kWed) != 0;
    task.m_bRepeatOnThu = (rules.days & kThu) != 0;
    task.m_bRepeatOnFri = (rules.days & kFri) != 0;
    task.m_bRepeatOnSat = (rules.days & kSat) != 0;
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
