#pragma once

#include "core/task/TaskFields.h"

// What m_strLastRunResult holds after a launch that the system accepted; any other text says why it failed.
inline constexpr const wchar_t* kLaunchSuccess = L"Success";

// What it holds after a launch for which no program was found (FindExtractionProgram).
inline constexpr const wchar_t* kNoProgramFound = L"Failure to run ''";

// Whether the task's last launch failed; false before the first.
[[nodiscard]] inline bool HasFailed(const TaskFields& task) {
    return !task.m_strLastRunResult.empty() && task.m_strLastRunResult != kLaunchSuccess;
}
