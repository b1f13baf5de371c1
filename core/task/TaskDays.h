#pragma once

#include <cstdint>
#include <string_view>

#include "core/task/SCVShchedulerTask.h"

// The weekdays under the names that reports and JSON use; "Wen" is what the task list file calls Wednesday.
struct TaskDay {
    const char* name;
    std::int32_t CSCVShchedulerTask::*flag;
};
inline constexpr TaskDay kTaskDays[] = {
    {"Mon", &CSCVShchedulerTask::m_bRepeatOnMon}, {"Tue", &CSCVShchedulerTask::m_bRepeatOnTue},
    {"Wen", &CSCVShchedulerTask::m_bRepeatOnWen}, {"Thu", &CSCVShchedulerTask::m_bRepeatOnThu},
    {"Fri", &CSCVShchedulerTask::m_bRepeatOnFri}, {"Sat", &CSCVShchedulerTask::m_bRepeatOnSat},
    {"Sun", &CSCVShchedulerTask::m_bRepeatOnSun},
};

// The day of a name in any case, "Wed" as well as "Wen"; null when there is none.
[[nodiscard]] const TaskDay* FindTaskDay(std::string_view name);
