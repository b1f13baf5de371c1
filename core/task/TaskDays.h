#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/task/TaskFields.h"

// The weekdays, Monday first. "Wen" is what window, list file, reports and JSON call Wednesday.
struct TaskDay {
    std::wstring_view name;
    std::wstring_view key;  // in the list file
    std::int32_t TaskFields::*flag;
};
inline constexpr TaskDay kTaskDays[] = {
    {L"Mon", L"RepeatOnMon", &TaskFields::m_bRepeatOnMon},
    {L"Tue", L"RepeatOnTue", &TaskFields::m_bRepeatOnTue},
    {L"Wen", L"RepeatOnWen", &TaskFields::m_bRepeatOnWen},
    {L"Thu", L"RepeatOnThu", &TaskFields::m_bRepeatOnThu},
    {L"Fri", L"RepeatOnFri", &TaskFields::m_bRepeatOnFri},
    {L"Sat", L"RepeatOnSat", &TaskFields::m_bRepeatOnSat},
    {L"Sun", L"RepeatOnSun", &TaskFields::m_bRepeatOnSun},
};

// Weekdays count from 0, Sunday, to 6, Saturday.
[[nodiscard]] constexpr const TaskDay& TaskDayOf(int weekday) {
    return kTaskDays[(weekday + 6) % 7];
}

// The day with this name, in any case; "Wed" means "Wen". Null when there is none.
[[nodiscard]] const TaskDay* FindTaskDay(std::wstring_view name);

// "Mon, Tue, Wen, Thu, Fri, Sat and Sun"
[[nodiscard]] std::wstring TaskDayNames();
