#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CSCVShchedulerTask;

// A task and its next runs. Does not own the task.
struct TaskReport {
    const CSCVShchedulerTask* task;
    std::vector<std::int64_t> runs;  // empty when there is none or the task is disabled
    std::wstring schedule;           // in words; empty when it cannot be computed
    std::wstring error;              // why schedule and runs cannot be computed; empty when they can

    [[nodiscard]] std::int64_t NextRun() const { return runs.empty() ? 0 : runs.front(); }
};

// A task with its next `count` runs seen from `now`.
[[nodiscard]] TaskReport ReportTask(const CSCVShchedulerTask& task, std::int64_t now, int count);

// The same for each of many tasks.
[[nodiscard]] std::vector<TaskReport> ReportTasks(const std::vector<CSCVShchedulerTask*>& tasks,
                                                  std::int64_t now, int count);
