#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/report/Json.h"
#include "cli/report/TaskReport.h"
#include "core/check/Check.h"

// Reports for programs: one JSON object in UTF-8, times as seconds since 1970 and as local times.

// A task as it looks in all reports. With `runs` it has the array of its next runs.
[[nodiscard]] Json TaskAsJson(const TaskReport& report, bool runs);
// The repeat rules without "every.unit", which is a number in reports and a word in exports.
[[nodiscard]] Json RepeatAsJson(const CSCVShchedulerTask& task);

// With `runs`, each task has the array of its next runs.
[[nodiscard]] std::string TasksAsJson(const std::wstring& list, std::int64_t now,
                                      const std::vector<TaskReport>& reports, bool runs);
[[nodiscard]] std::string FindingsAsJson(const std::wstring& list, std::int64_t now,
                                         const std::vector<Finding>& findings);
