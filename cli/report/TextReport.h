#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/report/TaskReport.h"
#include "core/check/Check.h"

// Reports for people, in UTF-8. No text is cut off: one wider than its column continues on the next line.

// The tasks as a table that is at most `width` columns wide.
[[nodiscard]] std::string TasksAsText(const std::vector<TaskReport>& reports, std::size_t width);
// A line for each task, its fields separated by tabs: last run, next run, last result ("-" when there is
// none), project, schedule in words.
[[nodiscard]] std::string TasksAsLines(const std::vector<TaskReport>& reports);
// With a header: whether it is enabled, project, last run, last result, next run, command line, section,
// schedule in words.
[[nodiscard]] std::string TasksAsCsv(const std::vector<TaskReport>& reports);
// With a header: the runs of each task, of which there may be none.
[[nodiscard]] std::string NextRunsAsCsv(const std::vector<TaskReport>& reports);
// A line for each run, earliest first within its task. The first line of a task ends with the schedule in
// words.
[[nodiscard]] std::string NextRunsAsText(const std::vector<TaskReport>& reports);
// A line for each finding.
[[nodiscard]] std::string FindingsAsText(const std::wstring& list, const std::vector<Finding>& findings);
